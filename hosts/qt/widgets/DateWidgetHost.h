#pragma once

#include "VelmoraCalendar/QtConversions.h"
#include "VelmoraCalendar/VmDateWidget.h"
#include "calendar/CProperties.h"
#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/drawing/QtDrawing.h"
#include "hosts/qt/values/QtNames.h"
#include "hosts/qt/windows/QtDrop.h"
#include "hosts/qt/windows/QtHost.h"
#include "platform/DrawingScopes.h"
#include "platform/dates/Dates.h"

#include <QDate>
#include <QHash>
#include <QPointer>
#include <QString>

#include <functional>
#include <type_traits>
#include <variant>

class QAccessibleInterface;
class QMouseEvent;

namespace velmora {

/// The control of one widget with what it stands on. Its notifications become the widget's signals,
/// whose slots may delete the widget and with it this object: no member that calls into the control
/// touches anything afterwards, unless it has made sure that the widget lives.
class Q_DECL_HIDDEN VmDateWidget::Host : public QtHosting {
public:
    /// The window and the control are members of the derived class, which makes them after this.
    Host(VmDateWidget& widget, QtWindowing& windowing, AnyControl control);

    /// Tells the signals of the property, by the name under which it is saved.
    void PropertyChanged(std::string_view key) override;
    /// Emits the property's own signal, if it has one. A slot may delete the widget.
    void Notify(const QByteArray& name);

    virtual void MouseDown(const QMouseEvent& event);
    void DblClick(const QMouseEvent& event);
    void MouseMove(const QMouseEvent& event);
    virtual void MouseUp(const QMouseEvent& event);
    /// Something else takes the release of a button.
    virtual void LoseMouse() = 0;
    /// Makes the control know all that the user has done in its children. False when it is gone.
    virtual bool TakeSelectorInput() { return true; }
    bool ClassicLook() const noexcept { return m_drawing.Classic(); }
    virtual void ClassicLook(bool value);
    virtual void EnabledChanged();
    /// Language, or the direction that it is written in.
    virtual void LocaleChanged();
    /// Palette, style or font; with them the properties that follow them.
    virtual void LookChanged();
    QHash<QDate, QString> toolTips;  // of the days that have one

    QtDropTarget& Drops() noexcept { return m_drops; }
    /// Something that screen readers are told may have changed. They hear of it when what is under
    /// way is over; without one it costs nothing.
    void TellReaders();

    /// Does with the control what both kinds can do.
    template <class Action>
    decltype(auto) With(Action action) const {
        return std::visit([&](auto* control) -> decltype(auto) { return action(*control); },
                          m_control);
    }

    /// The property of that row, in Qt's type.
    template <class T, class Row>
    T Get(const Row& row) {
        return With([&](const auto& control) { return Shown<T>(control.Get(row)); });
    }
    /// A refusal becomes a warning about the widget's property.
    template <class Row, class Value>
    void Let(const Row& row, const Value& value) {
        With([&](auto& control) { Let(control, row, value); });
    }
    /// Of a row that the other control has not.
    template <class Control, class Row, class Value>
    static void Let(Control& control, const Row& row, const Value& value) {
        Attempt(control, NameIn(control, row), [&] {
            if constexpr (std::is_same_v<Row, DateProperty>) {
                control.Let(row, Variant(Stored(value)));
            } else {
                control.Let(row, static_cast<typename Row::Value>(Stored(value)));
            }
        });
    }
    /// To the value of a new control.
    template <class Row>
    void Reset(const Row& row) {
        With([&](auto& control) { control.Let(row, CProperties(m_dates).Get(row)); });
    }
    /// Does what may be refused. The control may be gone afterwards.
    template <class Control, class Operation>
    static void Attempt(Control& control, std::string_view property, Operation operation) {
        const std::string_view type = control.TypeName();
        try {
            operation();
        } catch (const AutomationError& error) {
            Warn(type, property, error);
        }
    }

    template <class T, class Value>
    T Shown(const Value& value) {
        if constexpr (std::is_same_v<T, QColor>) {
            return ToQColor(ResolveColor(m_drawing, value));
        } else if constexpr (std::is_same_v<T, QFont>) {
            return ToQFont(value ? *value : *AmbientFont());
        } else if constexpr (std::is_same_v<T, QPixmap>) {
            return QPixmap::fromImage(ToQImage(value));
        } else if constexpr (std::is_same_v<T, QDate>) {
            return ToQDate(DayOf(value));
        } else {
            return static_cast<T>(value);
        }
    }

protected:
    /// The control as screen readers see it, for Qt to keep.
    virtual QAccessibleInterface* NewAccess() = 0;
    /// To be called when the control has been made.
    void Begin();
    virtual void EmitDateValue() = 0;
    /// A slot may delete the widget.
    void EmitSafely(const std::function<void()>& signal);
    virtual void WindowChanged() = 0;
    /// Emits the signals of those colours and fonts that are not set, as long as the widget lives.
    template <class Control, const auto&... kRow>
    void NotifyFollowers(const Control& control, Rows<kRow...>,
                         const QPointer<VmDateWidget>& widget) {
        const auto follows = [&]<class Row>(const Row& row) {
            if constexpr (requires { typename Row::Value; }) {
                if constexpr (std::is_same_v<typename Row::Value, OLE_COLOR>) {
                    return (control.Get(row) & kSystemColor) != 0;
                } else if constexpr (std::is_same_v<typename Row::Value, FontRef>) {
                    return IsAmbient(control.Get(row));
                }
            }
            return false;
        };
        ((widget && follows(kRow) ? Notify(QtNameOf(kRow.name)) : void()), ...);
    }

    QtDrawing m_drawing;
    bool m_emitsLater = false;  // in the middle of what a slot must not delete the widget in

private:
    static QAccessibleInterface* AccessOf(const QString&, QObject* object);
    template <class Events>
    void EmitEvents(Events& events);

    static std::string_view NameIn(const VmCalendar&, const auto& row) { return row.name; }
    static std::string_view NameIn(const VmCalDropDown&, const auto& row) {
        return InBox(row).name;
    }
    static void Warn(std::string_view type, std::string_view property,
                     const AutomationError& error);

    // What is set, in the core's type. Error 13: it is nothing at all. Error 380: a colour that is
    // not opaque.
    static OLE_COLOR Stored(const QColor& value);
    static Date Stored(QDate value);
    static Date Stored(const QDateTime& value);
    static FontRef Stored(const QFont& value);
    static PictureRef Stored(const QPixmap& value) { return iconPicture(value.toImage()); }
    static std::string Stored(const QString& value) { return value.toStdString(); }
    template <class Plain>
    static Plain Stored(Plain value) {
        return value;
    }

    VmDateWidget& m_widget;
    QtWindowing& m_windowing;
    AnyControl m_control;
    QtDropTarget m_drops;

protected:
    Dates m_dates;
};

}  // namespace velmora
