#include "editor/ViewPointer.h"

#include <algorithm>
#include <cmath>

#include "waveform/Samples.h"
#include "waveform/ViewRules.h"
#include "widgets/Controls.h"

namespace {

constexpr double kZoomStep = 2.0;

}  // namespace

ViewPointer::ViewPointer(ProgramState& program, EditorView& view, QWidget* parent) : program_(program), view_(view) {
    corint = {MakeLabel(QStringLiteral("corint_0"), QStringLiteral("X:"), parent),
              MakeLabel(QStringLiteral("corint_1"), QStringLiteral("Y:"), parent)};
    corper = {MakeLabel(QStringLiteral("corper_0"), QStringLiteral("X: %"), parent),
              MakeLabel(QStringLiteral("corper_1"), QStringLiteral("Y: %"), parent)};
    // To a screen reader a label's name is its text.
    corint[0]->setAccessibleDescription(QStringLiteral("Address of the pointer"));
    corint[1]->setAccessibleDescription(QStringLiteral("Value at the pointer"));
    corper[0]->setAccessibleDescription(QStringLiteral("Address of the pointer, in percent of the last"));
    corper[1]->setAccessibleDescription(QStringLiteral("Value at the pointer, in percent of the full span"));
}

void ViewPointer::DragView(int buttons, float x) {
    EditorState& editor = program_.editor;
    // A drag may leave the picture.
    const auto held = std::clamp(x, 0.0F, static_cast<float>(editor.Size->LastAdr));
    const auto at = Nearest(held);
    if (buttons != 1) {
        if (editor.ZoomDragging) {
            EndDrag(at);
        }
        return;
    }
    if (!editor.ZoomDragging) {
        editor.ZoomDragging = true;
        editor.ZoomDragFrom = at;
        editor.ZoomDragTo = -1;
        return;
    }
    const double to = editor.ZoomDragTo == -1 ? held : at;
    editor.ZoomDragTo = at;
    view_.ShowZoomBox(editor.ZoomDragFrom, to);
}

void ViewPointer::EndDrag(int to) {
    EditorState& editor = program_.editor;
    editor.ZoomDragging = false;
    editor.ZoomDragTo = static_cast<qint16>(to);
    view_.ForgetZoomBox();
    SetView(editor, ZoomView(editor.ZoomDragFrom, editor.ZoomDragTo, editor.Size->LastAdr));
    editor.EditorRedrawPending = true;
}

void ViewPointer::Page(float x) {
    EditorState& editor = program_.editor;
    const View view{editor.ViewLeft, editor.ViewRight};
    if (const auto paged = PageView(view, x, editor.Size->LastAdr)) {
        SetView(editor, *paged);
    } else {
        editor.LineActive = false;
    }
}

void ViewPointer::Zoom(double steps) {
    EditorState& editor = program_.editor;
    const View view{editor.ViewLeft, editor.ViewRight};
    const bool pointed = view_.HasPointer() && editor.CrossX == ClampX(editor.CrossX, view);
    const double x = pointed ? editor.CrossX : (view.left + view.right) / 2.0;
    SetView(editor, ScaleView(view, x, std::pow(kZoomStep, -steps), editor.Size->LastAdr));
}

void ViewPointer::ShowPosition(float x, float y) {
    EditorState& editor = program_.editor;
    const UserNumbers& numbers = program_.numbers;
    const auto percent = [&numbers](float value) -> QString { return numbers.Picture(value, "0.0") + u'%'; };
    corint[0]->setText(u"X= " + QString::number(Nearest(x)));
    corint[1]->setText(u"Y= " + QString::number(Nearest(y)));
    corper[0]->setText(u"X= " + percent(PercentX(x, editor.Size->LastAdr)));
    corper[1]->setText(u"Y= " + percent(PercentY(y)));
    view_.ShowCross(x, y);
    editor.CrossX = x;
    editor.CrossY = y;
    editor.CrossFresh = false;
}
