#include "link/Connection.h"

#include "core/Text.h"

QString LineSettings(qint32 baud) { return QString::number(baud) + u",N,8,2"; }

namespace {

// An instrument that answers with a lone CR counts as found.
bool IsModelReply(const QString& reply) { return reply == u"KL5276-2" || reply == u"KL5276" || reply.isEmpty(); }

QString NotFound() { return QStringLiteral("Unit not found"); }

}  // namespace

void Connection::OpenComPort() {
    link_.SerialFault = 0;
    link_.Reported = {};
    link_.SerialErrorText = QStringLiteral(" Can not open com. port");
    transport_.ClosePort();
    if (transport_.OpenPort(preferences_.ComPortNumber, LineSettings(preferences_.ComBaudRate))) {
        link_.LinkUp = 1;
    } else {
        transport_.ShowSerialError(LinkFault::PortNotOpened);
        link_.LinkUp = 0;
    }
}

void Connection::ProbeUnit() {
    link_.SerialFault = 0;
    link_.ReplyText.clear();
    link_.UnitFound = 0;
    if (!transport_.PortOpen()) {
        return;
    }
    link_.SerialErrorText = QStringLiteral(" Unit not found ");
    if (Ask("ID?") && IsModelReply(link_.ReplyText)) {
        link_.UnitFound = 1;
    }
}

// False if the query ended in a fault.
bool Connection::Ask(const char* query) {
    link_.CommandText = QString::fromLatin1(query);
    transport_.QueryUnit();
    return link_.SerialFault != 1;
}

void Connection::ConnectUnit() {
    link_.SerialFault = 0;
    desktop_.BusyOn();
    OpenComPort();
    if (link_.SerialFault == 1) {
        return;
    }
    ProbeUnit();
    if (link_.UnitFound != 1 && !SearchRates()) {
        return;
    }
    link_.LinkUp = 1;
    front_.CheckRemote(true);
    if (!Ask("ID?") || !Ask("VER?")) {
        return;
    }
    link_.UnitVersion = TrimBlanks(link_.ReplyText);
    front_.ShowCaption(LinkedCaption(link_.UnitVersion));
    preferences_.ComBaudRate = transport_.Baud();
    desktop_.BusyOff();
}

// True as soon as a rate brings an answer that passes as the unit's; else the fault has been shown.
bool Connection::SearchRates() {
    for (const qint32 baud : kBaudRates) {
        if (gate_.Abandoned()) {
            break;
        }
        transport_.ClosePort();
        if (!transport_.OpenPort(preferences_.ComPortNumber, LineSettings(baud))) {
            transport_.ShowSerialError(LinkFault::PortNotOpened);
            return false;
        }
        ProbeUnit();
        if (link_.UnitFound == 1) {
            return true;
        }
    }
    if (gate_.Abandoned()) {
        desktop_.BusyOff();
        link_.LinkUp = 0;  // nobody was found, so there is nothing to give back
        front_.CheckRemote(false);
        return false;
    }
    link_.SerialErrorText = NotFound();
    transport_.ShowSerialError(LinkFault::OtherUnit);
    return false;
}

void Connection::DisconnectUnit() {
    if (!transport_.PortOpen()) {
        return;
    }
    desktop_.BusyOn();
    link_.SerialFault = 0;
    link_.CommandText = QStringLiteral("RM0");
    transport_.SendCommand();
    if (link_.SerialFault != 1 && transport_.ClosePort()) {
        link_.LinkUp = 0;
        front_.CheckRemote(false);
        front_.ShowCaption(OfflineCaption());
    }
    desktop_.BusyOff();
}

void Connection::AutoSearchUnit() {
    desktop_.BusyOn();
    link_.LinkUp = 0;
    front_.CheckRemote(false);
    for (qint16 port = kFirstComPort; port <= kLastComPort && link_.LinkUp == 0 && !gate_.Abandoned(); ++port) {
        preferences_.ComPortNumber = port;
        preferences_.ComBaudRate = kUsualBaudRate;
        ConnectUnit();
    }
    if (gate_.Abandoned()) {
        desktop_.BusyOff();
        return;
    }
    if (link_.LinkUp == 1) {
        desktop_.MessageBox(QStringLiteral("Unit found at port:  %1   Baud:  %2")
                                .arg(preferences_.ComPortNumber)
                                .arg(preferences_.ComBaudRate),
                            QStringLiteral("Autosearch"));
    } else {
        link_.SerialErrorText = NotFound();
        transport_.ShowSerialError(LinkFault::NoAnswer);
    }
}
