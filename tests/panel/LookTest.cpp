#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QStyleOption>
#include <QTabBar>
#include <QTreeWidget>

#include "AllWindows.h"
#include "support/Pixels.h"
#include "widgets/PictureBox.h"

namespace {

constexpr double kEdge = 3.0;
constexpr double kText = 4.5;
constexpr QSize kWhole(1400, 900);  // nothing scrolls

QPalette DarkPalette(const QColor& window, const QColor& base, const QColor& button) {
    QPalette dark(button, window);
    dark.setColor(QPalette::Base, base);
    dark.setColor(QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));
    dark.setColor(QPalette::HighlightedText, QColor(0xef, 0xf0, 0xf1));
    dark.setColor(QPalette::Link, QColor(0x29, 0x80, 0xb9));
    return dark;
}

// Those of desktops as users have them.
QList<std::pair<const char*, QPalette>> Palettes() {
    return {{"light", QApplication::style()->standardPalette()},
            {"dark", DarkPalette(QColor(0x31, 0x36, 0x3b), QColor(0x23, 0x26, 0x29), QColor(0x31, 0x36, 0x3b))},
            {"black", DarkPalette(Qt::black, Qt::black, QColor(0x18, 0x18, 0x18))},
            {"high contrast", QPalette(Qt::yellow, Qt::black, Qt::black, Qt::black, Qt::black, Qt::yellow, Qt::black)},
            {"high contrast, white",
             QPalette(Qt::black, Qt::white, Qt::white, Qt::black, Qt::black, Qt::black, Qt::white)}};
}

// What a window shows of controls and texts, measured one by one.
class Measure {
  public:
    explicit Measure(QWidget& window) : window_(window), shot_(window) {
        for (QWidget* const control : window.findChildren<QWidget*>()) {
            if (control->isVisible() && control->window() == &window &&
                control->visibleRegion().contains(control->rect().center())) {
                Look(*control);
            }
        }
    }
    double edge = 21.0;  // the lowest
    double text = 21.0;
    int count = 0;

  private:
    void Edge(const QWidget& control, const QRect& place, int sides = 4) {
        if (control.isEnabled()) {
            Note(control, "edge", shot_.EdgeContrast(InWindow(control, place), sides), kEdge, edge);
        }
    }
    void Text(const QWidget& control, const QRect& place) {
        Note(control, "text", shot_.InkContrast(InWindow(control, place)), kText, text);
    }
    void Note(const QWidget& control, const char* what, double contrast, double least, double& lowest) {
        EXPECT_GE(contrast, least) << what << " of " << control.metaObject()->className() << ' ' << control.objectName()
                                   << " in " << window_.objectName();
        lowest = std::min(lowest, contrast);
        ++count;
    }
    QRect InWindow(const QWidget& control, const QRect& place) const {
        return {control.mapTo(&window_, place.topLeft()), place.size()};
    }

    void Look(const QWidget& control) {
        if (const auto* const label = qobject_cast<const QLabel*>(&control); label && !label->text().isEmpty()) {
            Text(control, label->contentsRect());
        } else if (const auto* const field = qobject_cast<const QLineEdit*>(&control)) {
            LookAtField(*field);
        } else if (qobject_cast<const QAbstractButton*>(&control) != nullptr) {
            LookAtButton(static_cast<const QAbstractButton&>(control));
        } else if (qobject_cast<const QAbstractSpinBox*>(&control) || qobject_cast<const QComboBox*>(&control)) {
            Edge(control, control.rect());
            Text(control, control.rect().adjusted(5, 5, -24, -5));
        } else if (const auto* const bar = qobject_cast<const QTabBar*>(&control)) {
            for (int tab = 0; tab < bar->count(); ++tab) {
                Edge(control, bar->tabRect(tab).adjusted(0, tab == bar->currentIndex() ? 0 : 2, 0, 0),
                     3);  // open below
                Text(control, bar->tabRect(tab).adjusted(6, 6, -6, -4));
            }
        } else if (const auto* const menus = qobject_cast<const QMenuBar*>(&control)) {
            for (QAction* const action : menus->actions()) {
                Text(control, menus->actionGeometry(action));
            }
        } else if (const auto* const frame = qobject_cast<const QGroupBox*>(&control)) {
            LookAtFrame(*frame);
        } else if (const auto* const area = qobject_cast<const QAbstractScrollArea*>(&control)) {
            LookAtArea(*area);
        }
    }
    void LookAtField(const QLineEdit& field) {
        if (field.hasFrame()) {
            Edge(field, field.rect());
        }
        const int ink = field.fontMetrics().horizontalAdvance(field.text());
        if (field.hasSelectedText()) {  // its ground is that of the selection
            const QRect whole = field.rect().adjusted(6, 6, -6, -6);
            const int left = (field.alignment() & Qt::AlignRight) != 0 ? whole.right() - ink / 2 : whole.left() + 4;
            Text(field, {left, whole.top() + whole.height() / 4, std::max(ink / 2 - 8, 2), whole.height() / 2});
        } else if (!field.text().isEmpty()) {
            Text(field, field.rect().adjusted(4, 4, -4, -4));
        }
    }
    void LookAtButton(const QAbstractButton& button) {
        if (button.text().isEmpty()) {
            return;
        }
        if (qobject_cast<const QPushButton*>(&button) != nullptr) {
            Edge(button, button.rect());
            return Text(button, button.rect().adjusted(4, 4, -4, -4));
        }
        QStyleOptionButton option;
        option.initFrom(&button);
        const bool radio = qobject_cast<const QRadioButton*>(&button) != nullptr;
        const auto part = [&](QStyle::SubElement ofRadio, QStyle::SubElement ofCheck) {
            return button.style()->subElementRect(radio ? ofRadio : ofCheck, &option, &button);
        };
        Edge(button, part(QStyle::SE_RadioButtonIndicator, QStyle::SE_CheckBoxIndicator));
        Text(button, part(QStyle::SE_RadioButtonContents, QStyle::SE_CheckBoxContents)
                         .adjusted(button.icon().isNull() ? 4 : button.iconSize().width() + 4, 3, -3, -3));
    }
    void LookAtFrame(const QGroupBox& frame) {
        const int title = frame.fontMetrics().height() + 3;
        Edge(frame, frame.rect().adjusted(0, title, 0, 0));
        Text(frame, {0, 0, frame.fontMetrics().horizontalAdvance(frame.title()), title - 2});
    }
    void LookAtArea(const QAbstractScrollArea& area) {
        if (area.inherits("QPlainTextEdit") || area.inherits("QTextEdit")) {
            Text(area, area.viewport()->geometry().adjusted(2, 2, -2, -2));
        }
        if (const auto* const list = qobject_cast<const QAbstractItemView*>(&area); list && list->model()) {
            const int column = list->model()->columnCount() - 1;
            for (int row = 0; row < list->model()->rowCount(); ++row) {
                const QRect place = list->visualRect(list->model()->index(row, column));
                const bool filled = !list->model()->index(row, column).data().toString().isEmpty();
                if (filled && list->viewport()->rect().contains(place)) {
                    Text(area, place.translated(list->viewport()->pos()).adjusted(1, 1, -1, -1));
                }
            }
        }
        if (area.frameShape() == QFrame::StyledPanel) {
            Edge(area, area.rect());
        }
        for (const QScrollBar* const bar : {area.verticalScrollBar(), area.horizontalScrollBar()}) {
            if (bar->isVisible()) {
                Text(*bar, bar->rect());  // its handle against its ground; not a text, but no less clear
            }
        }
    }

    QWidget& window_;
    Shot shot_;
};

struct Look : Windows {
    const QPalette formerPalette = QApplication::palette();
    const QFont formerFont = QApplication::font();

    Look() {
        withPages = true;
        QApplication::setCursorFlashTime(0);
    }
    ~Look() override {
        QApplication::setPalette(formerPalette);
        QApplication::setFont(formerFont);
    }
    Q_DISABLE_COPY_MOVE(Look)

    // So large that nothing scrolls, once the desktop has brought it onto the small screen of the test.
    static void ShowWhole(QWidget* window) {
        for (int round = 0; round < 3; ++round) {
            QCoreApplication::processEvents();
            window->resize(kWhole);
        }
        QCoreApplication::processEvents();
    }

    // The pictures of waves have colours of their own in every theme.
    static QImage WithoutWaves(QWidget* window) {
        QImage image = window->grab().toImage();
        QPainter painter(&image);
        for (const char* const name : {"Picture1", "Picture2"}) {
            if (const auto* const wave = window->findChild<PictureBox*>(QString::fromLatin1(name))) {
                painter.fillRect(QRect(wave->mapTo(window, QPoint()), wave->size()), Qt::black);
            }
        }
        return image;
    }

    // A picture of each window once the theme is in force; of one size, and with the hint line at rest.
    QList<QImage> Pictures(const std::function<void()>& before, const std::function<void()>& running) {
        QList<QImage> pictures;
        panel = {};
        program.editor = {};
        program.preferences = {};
        before();
        MakeForm();
        Check([&](QWidget* window) {
            for (auto* const timer : form ? form->findChildren<QTimer*>() : QList<QTimer*>()) {
                timer->stop();
            }
            running();
            ShowWhole(window);
            pictures += WithoutWaves(window);
            before();
            QCoreApplication::processEvents();
        });
        return pictures;
    }
    void ExpectFollowed(const std::function<void()>& former, const std::function<void()>& later) {
        const QList<QImage> followed = Pictures(former, later);
        const QList<QImage> fresh = Pictures(later, [] {});
        ASSERT_EQ(followed.size(), fresh.size());
        for (qsizetype i = 0; i < fresh.size(); ++i) {
            EXPECT_TRUE(followed[i] == fresh[i]) << "window " << i;
        }
    }
};

TEST_F(Look, EdgesAndTextsStandOutInEveryPaletteAndWindow) {
    for (const auto& [name, palette] : Palettes()) {
        SCOPED_TRACE(name);
        QApplication::setPalette(palette);
        MakeForm();
        double edge = 21.0;
        double text = 21.0;
        int count = 0;
        Check([&](QWidget* window) {
            ShowWhole(window);
            const Measure measured(*window);
            edge = std::min(edge, measured.edge);
            text = std::min(text, measured.text);
            count += measured.count;
        });
        printf("%s: edges from %.2f, texts from %.2f, %d measured\n", name, edge, text, count);
        EXPECT_GT(count, 300);
    }
}

TEST_F(Look, AChangeOfThePaletteWhileRunningLeavesNothingBehind) {
    ExpectFollowed([] { QApplication::setPalette(Palettes()[0].second); },
                   [] { QApplication::setPalette(Palettes()[1].second); });
}

TEST_F(Look, AChangeOfTheFontWhileRunningLeavesNothingBehind) {
    const auto scaled = [this](double factor) {
        return [this, factor] {
            QFont font = formerFont;
            font.setPointSizeF(formerFont.pointSizeF() * factor);
            QApplication::setFont(font);
        };
    };
    ExpectFollowed(scaled(1.0), scaled(1.5));
}

// From the pixels: rows of the field that hold ink of the digits.
double DigitHeight(EntryField& field) {
    field.deselect();
    const QImage image = field.grab(field.rect().adjusted(4, 4, -4, -4)).toImage();
    const QRect digits(image.width() / 2, 0, image.width() / 2 - 4, image.height());
    return InkedRows(image.copy(digits), [&](QRgb pixel) { return Contrast(pixel, image.pixel(1, 1)) > 2.0; });
}

TEST_F(Look, TheReadingsAreTheLargestOnTheForm) {
    program.numbers = UserNumbers(QLocale(QLocale::German));
    Open();
    const double least = 5.5 / 25.4 * form->logicalDpiY();
    for (const auto& [width, height, factor] : {std::tuple(0, 0, 1.0), {1600, 1000, 1.8}}) {
        form->resize(std::max(width, form->width()), std::max(height, form->height()));
        QCoreApplication::processEvents();
        for (const char* const name : {"Text1", "Text2", "Text4"}) {
            const double softEdge = 0.5;
            EXPECT_GE(DigitHeight(*Get<EntryField>(name)) + softEdge, factor * least) << name;
            const QFontMetrics metrics = Get(name)->fontMetrics();
            EXPECT_EQ(metrics.horizontalAdvance(u'1'), metrics.horizontalAdvance(u'.')) << name;
            EXPECT_EQ(Get(name)->font(), Get("Text1")->font());
        }
    }
    panel.mFreq = 14'999'999.9999;  // the longest number that there is
    form->RefreshPanel();
    EXPECT_EQ(Text("Text1"), u"14,9999999999");
    for (const int width : {1400, 1200, 1100, 1}) {
        form->resize(width, 1000);
        QCoreApplication::processEvents();
        EXPECT_LT(Get("Text1")->fontMetrics().horizontalAdvance(Text("Text1")), Get("Text1")->width() - 8) << width;
    }
    const double digits = QFontMetricsF(Get("Text1")->font()).height();
    for (const QWidget* const other : form->findChildren<QWidget*>()) {
        EXPECT_TRUE(other->objectName().startsWith(u"Text") || other->fontMetrics().height() < digits)
            << other->objectName();
    }
}

TEST_F(Look, EachSignalFormHasASharpPictureInTheColourOfItsText) {
    Open();
    QSet<QString> drawn;
    for (const double ratio : {1.0, 1.5, 2.0}) {
        for (int signal = 0; signal < 9; ++signal) {
            auto* const option = Get<QRadioButton>(qPrintable(QStringLiteral("opsignal_%1").arg(signal)));
            const QRgb text = option->palette().color(QPalette::WindowText).rgb();
            const QImage image = option->icon().pixmap(option->iconSize(), ratio).toImage();
            EXPECT_EQ(image.size(), (QSizeF(option->iconSize()) * ratio).toSize());
            int ink = 0;
            int blurred = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const QColor pixel = image.pixelColor(x, y);
                    ink += pixel.alpha() > 100 && Contrast(pixel.rgb(), text) < 1.1;
                    blurred += pixel.alpha() > 16 && pixel.alpha() < 240;
                }
            }
            EXPECT_GT(ink, image.width() / 2) << signal;
            if (option->text() == u"Square wave") {
                EXPECT_LE(blurred, 4) << ratio;  // at the corners
            }
            QByteArray bytes(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
            drawn += QString::number(ratio) + QString::fromLatin1(bytes.toBase64());
        }
    }
    EXPECT_EQ(drawn.size(), 3 * 9);
}

TEST_F(Look, SetIsTheMainActionAndEnterInAFieldDoesNotPressIt) {
    Open();
    Connect();
    auto* const set = Get<QPushButton>("Command4");
    for (const char* const other : {"Command3", "Command7"}) {
        EXPECT_GT(set->height(), Get(other)->height());
    }
    EXPECT_NE(Shot(*set).Pixel({set->width() / 2, 4}), Shot(*Get("Command3")).Pixel({set->width() / 2, 4}));
    set->setDefault(true);
    Enter("Text1", "2");
    EXPECT_EQ(line.wire, QByteArray());
}

// Each control comes into view when the Tab key reaches it, and the hint line stays there.
TEST_F(Look, OnASmallScreenTheFocusScrollsEachControlIntoView) {
    Open();
    ShowWhole(form.get());
    panel.bmWobbel = 1;
    panel.bmFMod = 2;
    form->RefreshPanel();
    for (const QSize& screen : {QSize(960, 540), QSize(900, 500)}) {
        form->resize(screen - QSize(2, 26));  // without the frame that a desktop puts around it
        QCoreApplication::processEvents();
        EXPECT_EQ(form->size(), screen - QSize(2, 26));
        for (int tab = 0; tab < 3; ++tab) {
            ShowTab(tab);
            for (int stop = 0; stop < 40; ++stop) {
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                const QWidget* const control = QApplication::focusWidget();
                const bool large = qobject_cast<const QPlainTextEdit*>(control) != nullptr;
                EXPECT_TRUE(large || control->visibleRegion().boundingRect() == control->rect())
                    << control->objectName();
            }
            EXPECT_EQ(Get("Label8")->visibleRegion().boundingRect(), Get("Label8")->rect());
        }
    }
}

}  // namespace
