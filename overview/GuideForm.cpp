#include "overview/GuideForm.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>
#include <QResizeEvent>
#include <QScreen>
#include <QScrollBar>
#include <QTextBrowser>
#include <QTextTable>
#include <QVBoxLayout>

#include "widgets/Controls.h"
#include "widgets/FormPlace.h"
#include "widgets/Grid.h"

namespace {

constexpr char kContents[] = "docs/guide/README.md";
constexpr int kColumns = 100;  // characters of a page, and its lines
constexpr int kLines = 40;

// A page of the guide, with its pictures no wider than the window shows.
class GuidePages : public QTextBrowser {
  public:
    explicit GuidePages(QWidget* parent) : QTextBrowser(parent) {
        // A bar that came and went with the height of the pictures would change the width again.
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        document()->setDocumentMargin(kMargin);
        connect(this, &QTextBrowser::sourceChanged, this, &GuidePages::RuleTables);
    }

  protected:
    QVariant loadResource(int type, const QUrl& name) override {
        QVariant content = QTextBrowser::loadResource(type, name);
        QImage picture;
        if (type != QTextDocument::ImageResource || !picture.loadFromData(content.toByteArray())) {
            return content;
        }
        const int room = viewport()->width() - 2 * kMargin;
        const int shown = std::clamp(room, 1, picture.width());  // logical pixels
        const int dots = std::min(picture.width(), static_cast<int>(shown * devicePixelRatioF()));
        picture = picture.scaledToWidth(dots, Qt::SmoothTransformation);
        picture.setDevicePixelRatio(static_cast<double>(dots) / shown);
        return picture;
    }
    void resizeEvent(QResizeEvent* event) override {
        QTextBrowser::resizeEvent(event);
        if (event->size().width() != event->oldSize().width()) {
            ReadAgain();
        }
    }
    // The links of a page have the colour that the theme had when the page was read.
    void changeEvent(QEvent* event) override {
        QTextBrowser::changeEvent(event);
        if (event->type() == QEvent::PaletteChange) {
            ReadAgain();
        }
    }

  private:
    void RuleTables() const {
        for (QTextFrame* const frame : document()->rootFrame()->childFrames()) {
            if (auto* const table = qobject_cast<QTextTable*>(frame); table != nullptr) {
                QTextTableFormat format = table->format();
                format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
                format.setBorderCollapse(true);
                format.setBorderBrush(palette().mid());
                format.setCellPadding(kGap / 2.0);
                table->setFormat(format);
            }
        }
    }
    // Goes on at the same line.
    void ReadAgain() {
        QTextCursor line = cursorForPosition(QPoint());
        const int place = line.position();
        const int top = cursorRect(line).top();
        reload();
        line = QTextCursor(document());
        line.setPosition(place);
        verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(line).top() - top);
    }
};

QPushButton* AddButton(QHBoxLayout& row, const char* name, const QString& caption, QTextBrowser& pages,
                       void (QTextBrowser::*act)()) {
    auto* const button = Named(new QPushButton(caption), QString::fromLatin1(name));
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, &pages, act);
    row.addWidget(button);
    return button;
}

// The page of contents in the first of the folders that holds the guide; empty if none does.
QString FindGuide(const QStringList& folders) {
    for (const QString& folder : folders) {
        const QFileInfo contents(QDir(folder), QString::fromLatin1(kContents));
        if (contents.isFile()) {
            return contents.canonicalFilePath();
        }
    }
    return {};
}

}  // namespace

GuideForm::GuideForm(const QString& contents, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("guide"));
    setWindowTitle(QStringLiteral("Guide"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* const pages = Named(new GuidePages(this), QStringLiteral("pages"), QStringLiteral("Page of the guide"));
    auto* const column = new QVBoxLayout(this);
    auto* const row = new QHBoxLayout;
    AddButton(*row, "contents", QStringLiteral("&Contents"), *pages, &QTextBrowser::home);
    QPushButton* const back = AddButton(*row, "back", QStringLiteral("&Back"), *pages, &QTextBrowser::backward);
    back->setEnabled(false);
    connect(pages, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    row->addStretch();
    column->addLayout(row);
    column->addWidget(pages);
    pages->setOpenExternalLinks(true);
    pages->setSource(QUrl::fromLocalFile(contents));
    pages->setFocus();
    const QSize page(fontMetrics().averageCharWidth() * kColumns, fontMetrics().height() * kLines);
    resize(page.boundedTo(screen()->availableSize() * 0.9));  // with its frame on a small screen too
}

bool ShowGuide(QWidget& owner, const QStringList& folders) {
    auto* form = owner.findChild<GuideForm*>(QString(), Qt::FindDirectChildrenOnly);
    if (form == nullptr || !form->isVisible()) {
        const QString contents = FindGuide(folders);
        if (contents.isEmpty()) {
            return false;
        }
        form = new GuideForm(contents, &owner);
    }
    BringToFront(*form);
    return true;
}
