#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTabWidget>
#include <QTest>
#include <algorithm>
#include <memory>

#include "support/PrintQt.h"
#include "widgets/EntryField.h"

constexpr int kLimitMs = 30'000;  // for whatever the desktop does

// True once this window has the keyboard.
inline bool Activate(QWidget* window) {
    window->activateWindow();
    return QTest::qWaitFor([window] { return QApplication::activeWindow() == window; }, kLimitMs);
}

// A user's hands on a form: finds controls by name, clicks, types.
template <typename Form, typename Holder = std::unique_ptr<Form>>
class FormHands {
  public:
    Holder form{};

    // True once the form is shown and active.
    bool Show() {
        form->show();
        return Activate(&*form);
    }

    template <typename Control = QWidget>
    Control* Get(const char* name) {
        auto* const control = form->template findChild<Control*>(QString::fromLatin1(name));
        EXPECT_NE(control, nullptr) << name;
        return control;
    }

    QString Text(const char* field) { return Get<EntryField>(field)->text(); }
    QString Texts(std::initializer_list<const char*> fields) {
        QStringList texts;
        std::ranges::transform(fields, std::back_inserter(texts), [this](const char* field) { return Text(field); });
        return texts.join(u' ');
    }
    QString Hint() { return Get<QLabel>("Label8")->text(); }
    bool Checked(const char* option) { return Get<QAbstractButton>(option)->isChecked(); }
    void ExpectChecked(std::initializer_list<const char*> options) {
        std::ranges::for_each(options, [this](const char* option) { EXPECT_TRUE(Checked(option)) << option; });
    }
    bool HasFocus(const char* name) { return QApplication::focusWidget() == Get(name); }

    void ShowTab(int index) { Get<QTabWidget>("SSTab1")->setCurrentIndex(index); }
    void Click(const char* name) {
        QTest::mouseClick(Get(name), Qt::LeftButton, {}, QPoint(8, Get(name)->height() / 2));
    }
    void Key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

    // Types over what the field holds, key by key.
    void Type(const char* field, const char* text) {
        auto* const entry = Get<EntryField>(field);
        entry->setFocus();
        entry->selectAll();
        QTest::keyClick(entry, Qt::Key_Delete);
        QTest::keyClicks(entry, QString::fromLatin1(text));
    }
    void Enter(const char* field, const char* text) {
        Type(field, text);
        QTest::keyClick(Get(field), Qt::Key_Return);
    }
};
