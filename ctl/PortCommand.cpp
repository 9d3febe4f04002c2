#include <QJsonArray>
#include <QJsonObject>

#include "ctl/Commands.h"
#include "platform/ComPorts.h"

namespace {

// One line of the list: what the panel calls it, the device, what it is, what is wrong with it.
struct PortRow {
    QString name;
    QString device;
    QString product;
    QString trouble;
};

PortRow RowFor(const QString& name, const QString& device, const QList<SystemPort>& ports) {
    PortRow row{name, device, {}, device.isEmpty() ? QStringLiteral("no serial device") : TroubleWith(device)};
    for (const SystemPort& port : ports) {
        if (port.device == device || port.name == device) {
            row.product = port.product;
        }
    }
    return row;
}

// Com1 to Com4, then the devices behind none of them.
QList<PortRow> AllPorts() {
    QList<SystemPort> ports = SystemPorts();
    QList<PortRow> rows;
    QStringList shown;
    for (int number = kFirstComPort; number <= kLastComPort; ++number) {
        const QString device = FindComPort(number, PanelFolder(), [&ports] { return ports; });
        rows += RowFor(QStringLiteral("Com%1").arg(number), device, ports);
        shown += device;
    }
    for (const SystemPort& port : ports) {
        if (!shown.contains(port.device) && !shown.contains(port.name)) {
            rows += RowFor({}, port.device, ports);
        }
    }
    return rows;
}

QString Joined(const QStringList& parts) {
    QStringList present = parts;
    present.removeAll(QString());
    return present.join(u"  ");
}

}  // namespace

int ListPorts(Session& session, bool json) {
    QJsonArray list;
    for (const PortRow& row : AllPorts()) {
        list += QJsonObject{{QStringLiteral("port"), row.name},
                            {QStringLiteral("device"), row.device},
                            {QStringLiteral("product"), row.product},
                            {QStringLiteral("trouble"), row.trouble}};
        if (!json) {
            PrintResult(session, Joined({row.name.leftJustified(4), row.device, row.product,
                                         row.trouble.isEmpty() ? QStringLiteral("ok") : row.trouble}));
        }
    }
    if (json) {
        PrintJson(session, QJsonDocument(list));
    }
    return kDone;
}

int Identify(Session& session, bool json) {
    LinkState& link = session.program.link;
    bool answered = session.Connect();
    if (answered) {
        link.CommandText = QStringLiteral("ID?");
        session.link().transport.QueryUnit();
        answered = session.IsSound();
    }
    if (!answered) {
        return session.Failure();
    }
    const QList<std::pair<QString, QString>> facts{
        {QStringLiteral("model"), link.ReplyText},
        {QStringLiteral("version"), link.UnitVersion},
        {QStringLiteral("rate"), QString::number(session.program.preferences.ComBaudRate)},
        {QStringLiteral("device"), session.Device()}};
    QJsonObject object;
    for (const auto& [name, value] : facts) {
        object.insert(name, name == u"rate" ? QJsonValue(value.toInt()) : QJsonValue(value));
        if (!json) {
            PrintResult(session, name + u'=' + value);
        }
    }
    if (json) {
        PrintJson(session, QJsonDocument(object));
    }
    return kDone;
}

int SetClock(Session& session) {
    if (session.Connect()) {
        session.link().commands.SendTimeDate();
    }
    return session.IsSound() ? kDone : session.Failure();
}
