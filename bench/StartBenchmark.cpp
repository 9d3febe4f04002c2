// A start of the program up to its first picture, and what it holds in memory with the editor open on 16K. The floor is
// a window of plain controls of the same toolkit, or two, in a process of its own.

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>

#include "Table.h"
#include "panel/Main.h"
#include "platform/EventClock.h"
#include "platform/SerialControl.h"
#include "platform/SocketDdeLink.h"
#include "widgets/QtDesktop.h"
#include "widgets/Theme.h"

namespace {

constexpr int kStarts = 40;
constexpr QSize kWindow(1200, 800);

// Ends the program once a window was painted.
class FirstPaint : public QObject {
  public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched->isWidgetType()) {
            QTimer::singleShot(0, this, [] { QCoreApplication::exit(); });
        }
        return false;
    }
};

// A file dialog that names one file, and no boxes.
class OneFileDesktop : public QtDesktop {
  public:
    explicit OneFileDesktop(QString file) : file_(std::move(file)) {}
    void MessageBox(const QString&, const QString&) override {}
    void Information(const QString&, const QString&) override {}
    QString SaveFile(const FileRequest&) override { return file_; }

  private:
    QString file_;
};

// The whole program, with its files in a folder of its own.
struct Program {
    explicit Program(const QString& folder)
        : com([](int) { return QString(); }),
          desktop(folder + QStringLiteral("/bench.set")),
          form({program,
                com,
                clock,
                desktop,
                ziel,
                folder,
                {},
                [](int, bool) { return QString(); },
                [] { return true; }}) {
        form.Main_Form_Load();
        form.resize(kWindow);  // the screen of this platform is smaller than the panel, which would scroll
        form.show();
    }

    void OpenEditorOn16K() {
        form.findChild<QAction*>(QStringLiteral("mnueditor"))->trigger();
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->objectName() == u"Editor") {
                window->resize(kWindow);
                QCoreApplication::processEvents();
                window->findChild<QAction*>(QStringLiteral("mnu16ksig"))->trigger();
                window->findChild<QAction*>(QStringLiteral("mnu16ksig"))->trigger();
            }
        }
        QCoreApplication::processEvents();
    }

    ProgramState program;
    SerialControl com;
    EventClock clock;
    OneFileDesktop desktop;
    SocketDdeLink ziel;
    Main form;
};

// The pictures of both windows, logical pixels; the two of the editor as one.
constexpr QSize kPanelPicture(563, 334);
constexpr QSize kEditorPictures(1184, 698);

// A window with as many controls as the panel has, of the same kinds, fonts and letters, on one plain grid, and a
// picture.
struct BareWindow : QMainWindow {
    explicit BareWindow(QSize size) {
        auto* const paper = new QWidget(this);
        auto* const grid = new QGridLayout(paper);
        auto caption = [i = std::size_t{0}]() mutable {
            constexpr const char* kWords[]{"Sinusoid",    "Square wave", "Ramp, inc.", "Arbitrary (16k)", "MHz",
                                           "Frequency",   "Vpp",         "Gated low",  "External xtal",   "0.5",
                                           "Read 1.2340", "J: 56.789",   "Keys, Q",    "Back up"};
            return QString::fromLatin1(kWords[i++ % std::size(kWords)]);
        };
        const auto add = [grid](int count, const auto& make) {
            for (int i = 0; i < count; ++i) {
                grid->addWidget(make(), grid->count() / 8, grid->count() % 8);
            }
        };
        add(44, [&] { return new QRadioButton(caption(), paper); });
        add(8, [&] { return new QLineEdit(caption(), paper); });
        QFont digits = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        digits.setPointSizeF(2.0 * font().pointSizeF());
        add(3, [&] {
            auto* const reading = new QLineEdit(QStringLiteral("1.0000000"), paper);
            reading->setFont(digits);
            return reading;
        });
        add(21, [&] { return new QLabel(caption(), paper); });
        add(5, [&] { return new QPushButton(caption(), paper); });
        add(10, [&] { return new QGroupBox(caption(), paper); });
        add(1, [&] { return new QPlainTextEdit(caption(), paper); });
        add(1, [&] { return new QTabBar(paper); });
        add(1, [&] { return Picture(size, paper); });
        for (int i = 0; i < 4; ++i) {
            menuBar()->addMenu(caption())->addAction(caption());
        }
        setCentralWidget(paper);
        resize(kWindow);
        show();
    }

    static QLabel* Picture(QSize size, QWidget* paper) {
        QPixmap picture(size);
        picture.fill(Qt::white);
        auto* const shown = new QLabel(paper);
        shown->setPixmap(picture);
        shown->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);  // the window stays as large as ours
        return shown;
    }
};

// Bytes of memory that stand in RAM.
long ResidentMemory() {
    QFile status(QStringLiteral("/proc/self/statm"));
    return status.open(QIODevice::ReadOnly) ? status.readAll().split(' ').value(1).toLong() * 4096 : 0;
}

// A process of its own, by its role. Prints its memory.
int RunRole(const QByteArray& role, const QString& folder, QApplication& application) {
    FirstPaint firstPaint;
    application.installEventFilter(&firstPaint);
    if (role == "start") {
        FollowTheme();
        Program program(folder);
        return QApplication::exec();
    }
    if (role == "bare-start") {
        const BareWindow window(kPanelPicture);
        return QApplication::exec();
    }
    std::unique_ptr<Program> program;
    std::vector<std::unique_ptr<BareWindow>> windows;
    if (role == "editor") {
        FollowTheme();
        program = std::make_unique<Program>(folder);
        program->OpenEditorOn16K();
    } else {
        windows.push_back(std::make_unique<BareWindow>(kPanelPicture));
        windows.push_back(std::make_unique<BareWindow>(kEditorPictures));
        QCoreApplication::processEvents();
    }
    std::printf("%ld\n", ResidentMemory());
    return 0;
}

// What a process of a role prints; null if it failed.
QByteArray Run(const char* role, const QString& folder) {
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--role"), QString::fromLatin1(role), folder});
    const bool good =
        process.waitForFinished(60'000) && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    const QByteArray printed = process.readAllStandardOutput();
    return good ? QByteArray(printed + ' ') : QByteArray();
}

void Start(benchmark::State& state) {
    const QTemporaryDir folder;
    bool good = !Run("start", folder.path()).isNull();  // the first one makes the preferences
    const Figure row = Compare(
        state, [&] { good = good && !Run("start", folder.path()).isNull(); },
        [&] { good = good && !Run("bare-start", folder.path()).isNull(); });
    Put(state, row, good);
}
BENCHMARK(Start)->Name("Start to first paint")->Iterations(kStarts);

void Memory(benchmark::State& state) {
    const QTemporaryDir folder;
    double ours = 0.0;
    double bare = 0.0;
    for ([[maybe_unused]] auto _ : state) {
        ours = Run("editor", folder.path()).trimmed().toDouble() / 1.0e6;
        bare = Run("bare-windows", folder.path()).trimmed().toDouble() / 1.0e6;
    }
    Put(state, {"MB", ours, bare},
        ours > 0.0 && bare > 0.0 && QFile::exists(folder.filePath(QStringLiteral("bench.set"))));
}
BENCHMARK(Memory)->Name("Resident memory, editor open on 16K")->Iterations(1);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc == 4 && qstrcmp(argv[1], "--role") == 0) {
        return RunRole(argv[2], QString::fromLocal8Bit(argv[3]), application);
    }
    return RunTable(argc, argv);
}
