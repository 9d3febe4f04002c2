#include "widgets/FollowFont.h"

#include <QEvent>
#include <utility>

namespace {

class FontWatch : public QObject {
  public:
    FontWatch(QWidget* widget, std::function<void()> fit) : QObject(widget), fit_(std::move(fit)) {
        widget->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FontChange) {
            fit_();
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    std::function<void()> fit_;
};

}  // namespace

void FollowFont(QWidget* widget, std::function<void()> fit) {
    fit();
    new FontWatch(widget, std::move(fit));
}

void KeepRoomFor(QWidget* widget, const QString& text, int more) {
    FollowFont(widget, [=] {
        // As a label asks for it, which may be a pixel more than the text advances.
        widget->setMinimumWidth(widget->fontMetrics().boundingRect({}, Qt::TextSingleLine, text).width() + more);
    });
}

void KeepRoomForLines(QWidget* widget, int lines) {
    FollowFont(widget, [=] { widget->setMinimumHeight(lines * widget->fontMetrics().lineSpacing()); });
}
