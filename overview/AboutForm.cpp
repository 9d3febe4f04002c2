#include "overview/AboutForm.h"

#include <QEvent>
#include <QFocusEvent>
#include <QFontInfo>
#include <QVBoxLayout>

#include "widgets/FollowFont.h"
#include "widgets/FormPlace.h"
#include "widgets/Grid.h"

namespace {

constexpr char kWebSite[] = "https://trx5276.example";
constexpr double kTitleScale = 1.8;  // of the program's name, against the desktop's own text

QFont Emphasised(QFont font, double scale) {
    font.setPointSizeF(QFontInfo(font).pointSizeF() * scale);
    font.setBold(true);
    return font;
}

// A label that is one link. It takes the keyboard focus with the link chosen, so that Enter opens it.
class LinkLabel : public QLabel {
  public:
    using QLabel::QLabel;

  protected:
    void focusInEvent(QFocusEvent* event) override {
        QLabel::focusInEvent(event);
        if (event->reason() != Qt::MouseFocusReason && !hasSelectedText()) {
            QLabel::focusNextPrevChild(true);
        }
    }
    // With one link there is no other to go to first; the label's own way back finds this one again and again.
    bool focusNextPrevChild(bool next) override {
        return QWidget::focusNextPrevChild(next);  // NOLINT(bugprone-parent-virtual-call): past the label's own way
    }
};

}  // namespace

AboutForm::AboutForm(Desktop& desktop, QWidget* parent) : QDialog(parent), desktop_(desktop) {
    setObjectName(QStringLiteral("about"));
    setWindowTitle(QStringLiteral("About/Support"));
    setAttribute(Qt::WA_DeleteOnClose);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(2 * kMargin, 2 * kMargin, 2 * kMargin, kMargin);
    column->setSpacing(kGap / 2);
    column->setSizeConstraint(QLayout::SetFixedSize);

    QLabel* const Label1 = AddLabel(new QLabel(this), "Label1", QStringLiteral("TRX5276"));
    Label2 = AddLabel(new QLabel(this), "Label2", QString());
    column->addSpacing(kMargin);
    QLabel* const Label5 = AddLabel(new QLabel(this), "Label5", QStringLiteral("Support:"));
    FollowFont(this, [this, Label1, Label5] {
        Label1->setFont(Emphasised(font(), kTitleScale));
        Label5->setFont(Emphasised(font(), 1.0));
    });
    AddLabel(new QLabel(this), "Label6", QStringLiteral("TRX5276 project"));
    AddLabel(new QLabel(this), "Label7", QStringLiteral("Telephone: +1 555 0100"));
    AddLabel(new QLabel(this), "Label8", QStringLiteral("Telefax: +1 555 0101"));
    AddLabel(new QLabel(this), "Label13", QStringLiteral("E-mail: support@trx5276.example"));
    Label14 = AddLabel(new LinkLabel(this), "Label14", QString());
    Label14->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    Label14->setAccessibleName(QStringLiteral("Web site: ") + QLatin1String(kWebSite));
    connect(Label14, &QLabel::linkActivated, this, &AboutForm::about_Label14_Click);
    column->addSpacing(kMargin);

    Command1 = new QPushButton(QStringLiteral("OK"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command1->setFocus();
    connect(Command1, &QPushButton::clicked, this, &AboutForm::about_Command1_Click);
    column->addWidget(Command1, 0, Qt::AlignRight);

    RefreshLabel14();
    about_Form_Load();
}

QLabel* AboutForm::AddLabel(QLabel* label, const char* name, const QString& text) {
    label->setText(text);
    label->setObjectName(QLatin1String(name));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);  // to copy a number or an address
    layout()->addWidget(label);
    return label;
}

void AboutForm::about_Form_Load() { Label2->setText(QStringLiteral("The TRX5276 project, 2025-2026")); }

void AboutForm::about_Command1_Click() { close(); }

void AboutForm::about_Label14_Click() { desktop_.OpenInViewer(QUrl(QLatin1String(kWebSite))); }

void AboutForm::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && Label14 != nullptr) {
        RefreshLabel14();
    }
}

// A link keeps the colour that it was set with.
void AboutForm::RefreshLabel14() {
    Label14->setText(QStringLiteral("<a href=\"%1\" style=\"color: %2\">Web site: %1</a>")
                         .arg(QLatin1String(kWebSite), palette().color(QPalette::Link).name()));
}

void ShowAbout(QWidget& owner, Desktop& desktop) {
    AboutForm* form = nullptr;
    for (AboutForm* const other : owner.findChildren<AboutForm*>(Qt::FindDirectChildrenOnly)) {
        form = other->isVisible() ? other : form;  // a closed one lives on until its events are done
    }
    if (form == nullptr) {
        form = new AboutForm(desktop, &owner);
    }
    BringToFront(*form);
}
