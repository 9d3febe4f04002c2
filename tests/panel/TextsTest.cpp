#include <QFile>
#include <QGroupBox>
#include <QMenu>
#include <QTabBar>

#include "AllWindows.h"

namespace {

// One line for each control of a window: its name, what it shows, and in brackets its tool tip and its accessible name.
QStringList TextsOf(QWidget* window, const QString& folder) {
    QStringList lines(window->windowTitle().replace(folder, QStringLiteral("FOLDER")));
    const auto add = [&](const QObject* object, const QString& shown, const QString& toolTip, const QString& heard) {
        QString line = QString(u"  " + object->objectName() + u": " + shown);
        for (const QString& aside : {toolTip, heard}) {
            line += aside.isEmpty() ? QString() : QString(u" [" + aside + u']');
        }
        lines += line.replace(folder, QStringLiteral("FOLDER")).replace(u'\n', u'/');
    };
    for (const auto* const control : window->findChildren<QWidget*>()) {
        const QVariant text = control->property(qobject_cast<const QGroupBox*>(control) != nullptr ? "title" : "text");
        if (control->isVisible() && control->window() == window && !control->objectName().isEmpty() &&
            !control->objectName().startsWith(u"qt_") && (text.isValid() || !control->accessibleName().isEmpty())) {
            add(control, text.toString() + (control->isEnabled() ? u"" : u" (disabled)"), control->toolTip(),
                control->accessibleName());
        }
    }
    for (const auto* const tabs : window->findChildren<QTabBar*>()) {
        for (int i = 0; i < tabs->count(); ++i) {
            add(tabs, tabs->tabText(i), tabs->tabToolTip(i), {});
        }
    }
    for (const auto* const menu : window->findChildren<QMenu*>()) {
        for (const auto* const item : menu->objectName().isEmpty() ? QList<QAction*>() : menu->actions()) {
            const bool isTold = menu->toolTipsVisible() && item->toolTip() != item->iconText();
            add(item, menu->title() + u" > " + item->text() + (item->isEnabled() ? u"" : u" (disabled)"),
                item->shortcut().toString(), isTold ? item->toolTip() : QString());
        }
    }
    return lines;
}

// Of a window that comes again, what is new. A text that was changed on purpose is taken over by running this test with
// TRX_ACCEPT=1.
TEST_F(Windows, ShowTheTextsOfTheList) {
    withPages = true;
    QStringList shown;
    QSet<QString> seen;
    Check([&](QWidget* window) {
        for (const QString& text : TextsOf(window, folder.path())) {
            const qsizetype before = seen.size();
            seen += window->objectName() + text;
            shown += seen.size() > before ? QStringList(text) : QStringList();
        }
    });
    QFile list(QStringLiteral(QT_TESTCASE_SOURCEDIR) + QStringLiteral("/texts.txt"));
    if (qEnvironmentVariableIsSet("TRX_ACCEPT")) {
        ASSERT_TRUE(list.open(QIODevice::WriteOnly) && list.write(shown.join(u'\n').toUtf8()) > 0);
        return;
    }
    ASSERT_TRUE(list.open(QIODevice::ReadOnly));
    const QStringList wanted = QString::fromUtf8(list.readAll()).split(u'\n');
    for (qsizetype i = 0; i < std::max(wanted.size(), shown.size()); ++i) {
        ASSERT_EQ(shown.value(i), wanted.value(i)) << "line " << i + 1;
    }
}

}  // namespace
