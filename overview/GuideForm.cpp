#include "overview/GuideForm.h"

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

#include "widgets/Controls.h"
#include "widgets/FormPlace.h"

namespace {

constexpr char kContents[] = "docs/guide/README.md";
constexpr int kColumns = 100;  // characters of a page, and its lines
constexpr int kLines = 40;

QPushButton* AddButton(QHBoxLayout& row, const char* name, const QString& caption, QTextBrowser& pages,
                       void (QTextBrowser::*act)()) {
    auto* const button = Named(new QPushButton(caption), QString::fromLatin1(name));
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, &pages, act);
    row.addWidget(button);
    return button;
}

}  // namespace

GuideForm::GuideForm(const QString& contents, QWidget* parent)
    : QDialog(parent),
      pages_(Named(new QTextBrowser(this), QStringLiteral("pages"), QStringLiteral("Page of the guide"))) {
    setObjectName(QStringLiteral("guide"));
    setWindowTitle(QStringLiteral("Guide"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* const column = new QVBoxLayout(this);
    auto* const row = new QHBoxLayout;
    AddButton(*row, "contents", QStringLiteral("&Contents"), *pages_, &QTextBrowser::home);
    QPushButton* const back = AddButton(*row, "back", QStringLiteral("&Back"), *pages_, &QTextBrowser::backward);
    back->setEnabled(false);
    connect(pages_, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    row->addStretch();
    column->addLayout(row);
    column->addWidget(pages_);
    pages_->setOpenExternalLinks(true);
    pages_->setSource(QUrl::fromLocalFile(contents));
    pages_->setFocus();
    const QSize page(fontMetrics().averageCharWidth() * kColumns, fontMetrics().height() * kLines);
    resize(page.boundedTo(screen()->availableSize() * 0.9));  // with its frame on a small screen too
}

// The links of a page have the colour that the theme had when the page was read.
void GuideForm::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        const int place = pages_->verticalScrollBar()->value();
        pages_->reload();
        pages_->verticalScrollBar()->setValue(place);
    }
}

QString FindGuide(const QStringList& folders) {
    for (const QString& folder : folders) {
        const QFileInfo contents(QDir(folder), QString::fromLatin1(kContents));
        if (contents.isFile()) {
            return contents.canonicalFilePath();
        }
    }
    return {};
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
