#pragma once

#include "VelmoraCalendar/QtConversions.h"
#include "hosts/qt/windows/QtDrag.h"
#include "platform/Hosting.h"
#include "platform/dates/Date.h"

#include <QPointer>
#include <QWidget>

#include <cstdint>

/// The events that a calendar and a date box have in common, as the signals of their widgets.
namespace velmora {

template <class Widget, class Events>
void EmitDates(Widget* widget, Events& events) {
    events.DateChanged.Connect(
        [widget](Date& date) { emit widget->dateChanged(ToQDate(DayOf(date))); });
    events.DayChanged.Connect([widget](std::int16_t& day) { emit widget->dayChanged(day); });
    events.YearChanged.Connect([widget](std::int16_t& year) { emit widget->yearChanged(year); });
}

template <class Widget, class Events>
void EmitInput(Widget* widget, Events& events) {
    using Short = std::int16_t;
    events.KeyDown.Connect(
        [widget](Short& key, Short& shift) { emit widget->keyDown(key, shift); });
    events.KeyPress.Connect([widget](Short& key) { emit widget->keyPress(key); });
    events.KeyUp.Connect([widget](Short& key, Short& shift) { emit widget->keyUp(key, shift); });
    events.MouseDown.Connect([widget](Short& button, Short& shift, float& x, float& y) {
        emit widget->mouseDown(button, shift, x, y);
    });
    events.MouseMove.Connect([widget](Short& button, Short& shift, float& x, float& y) {
        emit widget->mouseMove(button, shift, x, y);
    });
    events.MouseUp.Connect([widget](Short& button, Short& shift, float& x, float& y) {
        emit widget->mouseUp(button, shift, x, y);
    });
}

template <class Widget, class Events>
void EmitDrag(Widget* widget, Events& events) {
    using Short = std::int16_t;
    using Long = std::int32_t;
    events.OLEStartDrag.Connect(
        [widget](DataRef& data, Long& effects) { emit widget->oleStartDrag(data, effects); });
    events.OLESetData.Connect(
        [widget](DataRef& data, Short& format) { emit widget->oleSetData(data, format); });
    events.OLEGiveFeedback.Connect([widget](Long& effect, bool& defaultCursors) {
        emit widget->oleGiveFeedback(effect, defaultCursors);
    });
    events.OLECompleteDrag.Connect(
        [widget](Long& effect) { emit widget->oleCompleteDrag(effect); });
    events.OLEDragOver.Connect([widget](DataRef& data, Long& effect, Short& button, Short& shift,
                                        float& x, float& y, Short& state) {
        emit widget->oleDragOver(data, effect, button, shift, x, y, state);
    });
    events.OLEDragDrop.Connect(
        [widget](DataRef& data, Long& effect, Short& button, Short& shift, float& x, float& y) {
            emit widget->oleDragDrop(data, effect, button, shift, x, y);
        });
}

/// What the source of a drag is asked on the way, as long as its widget lives, and the events with
/// it.
template <class Events>
DragEvents EventsOfDrag(QWidget& source, Events& events) {
    const QPointer<QWidget> widget(&source);
    return {.setData =
                [widget, &events](DataRef data, std::int16_t format) {
                    if (widget) events.OLESetData.Raise(data, format);
                },
            .giveFeedback =
                [widget, &events](std::int32_t effect) {
                    bool defaultCursors = true;
                    if (widget) events.OLEGiveFeedback.Raise(effect, defaultCursors);
                    return widget && !defaultCursors ? widget->cursor().pixmap() : QPixmap();
                }};
}

}  // namespace velmora
