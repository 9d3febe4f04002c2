#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>

#include "support/PrintQt.h"
#include "widgets/QtDesktop.h"

namespace {

constexpr int kLookMs = 5;

// Answers one dialog or box after the other by keys: a name and Enter, or Escape for an empty one, in the file dialog;
// y, n or Enter in a box; "=" stands for the name that the dialog brings. Remembers what the boxes said.
class Hand : public QObject {
  public:
    Hand(const QStringList& answers, bool desktopsOwn) : answers_(answers), desktopsOwn_(desktopsOwn) { LookSoon(); }

    QStringList said;
    bool Done() const { return answers_.isEmpty(); }

  private:
    void LookSoon() { QTimer::singleShot(kLookMs, this, &Hand::Look); }
    void Look() {
        LookSoon();  // what is pressed may open the next box
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (Done() && (box || dialog)) {
            ADD_FAILURE() << "an answer is missing";
            QApplication::closeAllWindows();
        } else if (box && IsForBox()) {
            said += box->text();
            if (desktopsOwn_) {
                EXPECT_EQ(box->textFormat(), Qt::PlainText);  // a name may look like markup
            }
            const QString answer = answers_.takeFirst().sliced(1);
            const auto button = answer.isEmpty() ? QMessageBox::Ok
                                : answer == u"y" ? QMessageBox::Yes
                                                 : QMessageBox::No;
            QTest::keyClick(box->button(button), Qt::Key_Space);
        } else if (dialog && !dialog->isActiveWindow()) {
            dialog->activateWindow();
        } else if (dialog && !Done() && !IsForBox()) {
            TypeName(dialog, answers_.takeFirst());
        }
    }
    bool IsForBox() const { return !Done() && answers_.constFirst().startsWith(u'!'); }
    void TypeName(QFileDialog* dialog, const QString& name) {
        auto* const field = dialog->findChild<QLineEdit*>();
        if (desktopsOwn_) {
            field->setObjectName(QString());
        }
        field->setFocus();
        if (name != u"=") {
            field->selectAll();
            QTest::keyClicks(field, name);
        }
        const auto buttons = dialog->findChild<QDialogButtonBox*>()->buttons();
        EXPECT_TRUE(name.isEmpty() || buttons.constFirst()->isEnabled()) << name;
        QTest::keyClick(field, name.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
    }

    QStringList answers_;
    bool desktopsOwn_;
};

class FileDialogs : public testing::Test {
  protected:
    FileDialogs() {
        // Where the dialog keeps its own size.
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings_.path());
        QDir(folder_.path()).mkdir(QStringLiteral("sub"));
        for (const char* const name : {"bare", "bare.set", "old 1.2.set", "TAKE.SET", "sub/inner.set"}) {
            EXPECT_TRUE(QFile(Path(name)).open(QIODevice::WriteOnly));
        }
    }

    QString Path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }

    // The name within the folder that the dialog gives, and behind it what the boxes said.
    QString Given(QString (Desktop::*show)(const FileRequest&), const char* answers, bool desktopsOwn = false) {
        Hand hand(QString::fromLatin1(answers).split(u'|'), desktopsOwn);
        QtDesktop desktop;
        const QString given = (desktop.*show)({.title = QStringLiteral("Select Settings"),
                                               .filter = QStringLiteral("Settings (*.set) |*.set"),
                                               .fileName = Path("last.set"),
                                               .extension = QStringLiteral("SET"),
                                               .longest = folder_.path().size() + 14});
        EXPECT_TRUE(hand.Done()) << answers;
        const QString name = given.isEmpty() ? given : QDir(folder_.path()).relativeFilePath(given);
        return (QStringList(name) + hand.said).join(u'|').replace(u'\n', u' ');
    }

    QTemporaryDir folder_;

  private:
    QTemporaryDir settings_;
};

TEST_F(FileDialogs, GiveTheFileThatIsMeantAndAskAboutItsWholeName) {
    const QString replaceOld = QStringLiteral("|old 1.2.set already exists. Do you want to replace it?");
    // which dialog, what is typed and answered, what comes of it
    const std::tuple<QString (Desktop::*)(const FileRequest&), const char*, QString> cases[] = {
        {&Desktop::SaveFile, "=", QStringLiteral("last.set")},
        {&Desktop::SaveFile, "take 1.2", QStringLiteral("take 1.2.set")},
        {&Desktop::SaveFile, "Take 2.Set", QStringLiteral("Take 2.Set")},
        {&Desktop::SaveFile, "sub|in 2", QStringLiteral("sub/in 2.set")},
        {&Desktop::SaveFile, "old 1.2|!y", u"old 1.2.set" + replaceOld},
        {&Desktop::SaveFile, "TAKE.SET|!y",
         QStringLiteral("TAKE.SET|TAKE.SET already exists. Do you want to replace it?")},
        {&Desktop::SaveFile, "old 1.2|!n|bare|!n|new",
         u"new.set" + replaceOld + u"|bare.set already exists. Do you want to replace it?"},
        {&Desktop::SaveFile, "old 1.2.settings", QStringLiteral("old 1.2.setti")},
        {&Desktop::SaveFile, "old 1.2|!n|", replaceOld},
        {&Desktop::OpenFile, "bare", QStringLiteral("bare")},
        {&Desktop::OpenFile, "old 1.2", QStringLiteral("old 1.2.set")},
        {&Desktop::OpenFile, "sub|inner", QStringLiteral("sub/inner.set")},
        {&Desktop::OpenFile, "none 1.2|!|", QStringLiteral("|none 1.2 File not found.")}};
    for (const auto& [show, answers, given] : cases) {
        EXPECT_EQ(Given(show, answers), given) << answers;
    }
    // In a dialog of the desktop there is no field in which the name could be completed.
    EXPECT_EQ(Given(&Desktop::SaveFile, "old 1.2|!n|old 1.2|!y", true), u"old 1.2.set" + replaceOld + replaceOld);
    EXPECT_EQ(Given(&Desktop::SaveFile, "take 1.2", true), u"take 1.2.set");
    EXPECT_EQ(Given(&Desktop::OpenFile, "none 1.2|!|old 1.2", true), u"old 1.2.set|none 1.2 File not found.");
}

// A window may close for good while a box or dialog of its own stands.
TEST_F(FileDialogs, EndWithTheWindowThatTheyBelongTo) {
    QtDesktop desktop;
    const auto file = [&desktop](auto show) { return !(desktop.*show)({}).isEmpty(); };
    for (const std::function<bool()>& ask : std::vector<std::function<bool()>>{
             [&] { return desktop.Question({}, {}, Desktop::Default::Yes); },
             [&] { return file(&QtDesktop::OpenFile); }, [&] { return file(&QtDesktop::SaveFile); }}) {
        auto* const owner = new QWidget;
        owner->show();
        owner->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(owner));
        QTimer::singleShot(kLookMs, owner, [owner] { delete owner; });
        EXPECT_FALSE(ask());
    }
}

}  // namespace
