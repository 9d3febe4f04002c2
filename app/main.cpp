#include "panel/Main.h"

#include <QApplication>
#include <QIcon>

#include "platform/ComPorts.h"
#include "platform/EventClock.h"
#include "platform/ProgramFolder.h"
#include "platform/SerialControl.h"
#include "platform/SocketDdeLink.h"
#include "widgets/QtDesktop.h"
#include "widgets/Theme.h"

namespace {

QIcon WindowIcon() {
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        icon.addFile(QStringLiteral(":/icons/%1.png").arg(size));
    }
    return icon;
}

}  // namespace

// Makes the program's state and everything that works on it, and wires them.
int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("TRX5276"));
    QApplication::setDesktopFileName(QStringLiteral("example.trx5276.panel"));
    QApplication::setWindowIcon(WindowIcon());
    FollowTheme();

    const QString folder = ProgramFolder();
    ProgramState program;
    SerialControl com([folder](int number) { return FindComPort(number, folder); });
    EventClock clock;
    QtDesktop desktop;
    SocketDdeLink ziel;
    Main form({program, com, clock, desktop, ziel, folder, DocumentFolders(),
               [folder](int number, bool openHere) { return DescribeComPort(number, folder, openHere); },
               [folder] { return AnyComPort(folder); }});
    desktop.SetParent(&form);
    form.Main_Form_Load();
    form.show();
    return QApplication::exec();
}
