#include <gtest/gtest.h>

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

#include "widgets/QtDesktop.h"

namespace {

constexpr int kLookMs = 5;
constexpr int kPatienceLooks = 2000;

// Answers one dialog or box after the other by keys: a name and Enter, or Escape for an empty one, in the file dialog;
// y, n or Enter in a box. Remembers what the boxes said.
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
        if (++looks_ > kPatienceLooks || (Done() && (box || dialog))) {
            ADD_FAILURE() << "an answer was not asked for, or is missing";
            QApplication::closeAllWindows();
        } else if (box && IsForBox()) {
            said += box->text();
            const QString answer = answers_.takeFirst().sliced(1);
            PressButton(box, answer.isEmpty() ? QMessageBox::Ok : answer == u"y" ? QMessageBox::Yes : QMessageBox::No);
        } else if (dialog && !dialog->isActiveWindow()) {
            dialog->activateWindow();
        } else if (dialog && !Done() && !IsForBox()) {
            TypeName(dialog, answers_.takeFirst());
        }
    }
    bool IsForBox() const { return !Done() && answers_.constFirst().startsWith(u'!'); }
    static void PressButton(QMessageBox* box, QMessageBox::StandardButton button) {
        QTest::keyClick(box->button(button), Qt::Key_Space);
    }
    void TypeName(QFileDialog* dialog, const QString& name) {
        auto* const field = dialog->findChild<QLineEdit*>();
        if (desktopsOwn_) {
            field->setObjectName(QString());
        }
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, name);
        const auto buttons = dialog->findChild<QDialogButtonBox*>()->buttons();
        EXPECT_TRUE(name.isEmpty() || buttons.constFirst()->isEnabled()) << name.toStdString();
        QTest::keyClick(field, name.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
    }

    QStringList answers_;
    bool desktopsOwn_;
    int looks_ = 0;
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
    std::string Given(QString (Desktop::*show)(const FileRequest&), const char* answers, bool desktopsOwn = false) {
        Hand hand(QString::fromLatin1(answers).split(u'|'), desktopsOwn);
        QtDesktop desktop;
        const QString given = (desktop.*show)({.title = QStringLiteral("Select Settings"),
                                               .filter = QStringLiteral("Settings (*.set) |*.set"),
                                               .fileName = Path("last.set"),
                                               .extension = QStringLiteral("SET"),
                                               .longest = folder_.path().size() + 14});
        EXPECT_TRUE(hand.Done()) << answers;
        const QString name = given.isEmpty() ? given : QDir(folder_.path()).relativeFilePath(given);
        return name.toStdString() + '|' + hand.said.join(u'|').replace(u'\n', u' ').toStdString();
    }

    QTemporaryDir folder_;

  private:
    QTemporaryDir settings_;
};

TEST_F(FileDialogs, ASavedNameHasTheExtensionAndIsAskedForOnceAsItWillBe) {
    // what is typed and answered, what comes of it
    const std::pair<const char*, const char*> cases[] = {
        {"take 1.2", "take 1.2.set|"},
        {"plain", "plain.set|"},
        {"Take 2.Set", "Take 2.Set|"},
        {"sub|in 2", "sub/in 2.set|"},
        {"old 1.2|!y", "old 1.2.set|old 1.2.set already exists. Do you want to replace it?"},
        {"TAKE.SET|!y", "TAKE.SET|TAKE.SET already exists. Do you want to replace it?"},
        {"old 1.2|!n|bare|!n|new",
         "new.set|old 1.2.set already exists. Do you want to replace it?|"
         "bare.set already exists. Do you want to replace it?"},
        {"old 1.2.settings", "old 1.2.setti|"},
        {"old 1.2|!n|", "|old 1.2.set already exists. Do you want to replace it?"}};
    for (const auto& [answers, given] : cases) {
        EXPECT_EQ(Given(&Desktop::SaveFile, answers), given) << answers;
    }
}

// In a dialog of the desktop there is no field in which the name could be completed.
TEST_F(FileDialogs, ADialogOfTheDesktopIsFollowedByTheQuestionAboutTheWholeName) {
    EXPECT_EQ(Given(&Desktop::SaveFile, "old 1.2|!n|old 1.2|!y", true),
              "old 1.2.set|old 1.2.set already exists. Do you want to replace it?|"
              "old 1.2.set already exists. Do you want to replace it?");
    EXPECT_EQ(Given(&Desktop::SaveFile, "take 1.2", true), "take 1.2.set|");
    EXPECT_EQ(Given(&Desktop::OpenFile, "none 1.2|!|old 1.2", true), "old 1.2.set|none 1.2 File not found.");
}

TEST_F(FileDialogs, AnOpenedNameIsTheFileAsTypedElseThatWithTheExtension) {
    const std::pair<const char*, const char*> cases[] = {{"bare", "bare|"},
                                                         {"bare.set", "bare.set|"},
                                                         {"old 1.2", "old 1.2.set|"},
                                                         {"sub|inner", "sub/inner.set|"},
                                                         {"", "|"},
                                                         {"none 1.2|!|", "|none 1.2 File not found."}};
    for (const auto& [answers, given] : cases) {
        EXPECT_EQ(Given(&Desktop::OpenFile, answers), given) << answers;
    }
}

}  // namespace
