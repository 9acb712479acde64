#pragma once

#include "VelmoraCalendar/QtExport.h"

#include <QObject>

#include <memory>
#include <utility>

/// What signals tell of an event, and let their slots change. The objects live for the time of the
/// signal only, as Qt's own events do: connect directly, and keep none of them.
namespace velmora {

class DataObject;
/// What is dragged; its class is in platform/DataObject.h.
using DataRef = std::shared_ptr<DataObject>;

/// A key that goes down or up.
class VELMORA_QT_API VmKeyArguments final : public QObject {
    Q_OBJECT
    Q_PROPERTY(int keyCode READ keyCode WRITE setKeyCode)
    Q_PROPERTY(int shift READ shift WRITE setShift)

public:
    VmKeyArguments(qint16& keyCode, qint16& shift) : m_keyCode(keyCode), m_shift(shift) {}

    /// The key as Windows numbers it: 13 Return, 37..40 the arrows, letters as capitals. What the
    /// slots leave is what the control acts on; 0 is no key.
    int keyCode() const { return m_keyCode; }
    void setKeyCode(int value) { m_keyCode = static_cast<qint16>(value); }
    /// 1 Shift, 2 Ctrl, 4 Alt.
    int shift() const { return m_shift; }
    void setShift(int value) { m_shift = static_cast<qint16>(value); }

private:
    qint16& m_keyCode;
    qint16& m_shift;
};

/// A character that is typed.
class VELMORA_QT_API VmKeyPressArguments final : public QObject {
    Q_OBJECT
    Q_PROPERTY(int keyAscii READ keyAscii WRITE setKeyAscii)

public:
    explicit VmKeyPressArguments(qint16& keyAscii) : m_keyAscii(keyAscii) {}

    int keyAscii() const { return m_keyAscii; }
    void setKeyAscii(int value) { m_keyAscii = static_cast<qint16>(value); }

private:
    qint16& m_keyAscii;
};

/// The calendar of a date box is about to open.
class VELMORA_QT_API VmDropDownArguments final : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool cancel READ cancel WRITE setCancel)

public:
    explicit VmDropDownArguments(bool& cancel) : m_cancel(cancel) {}

    /// Keeps the calendar hidden.
    bool cancel() const { return m_cancel; }
    void setCancel(bool value) { m_cancel = value; }

private:
    bool& m_cancel;
};

/// Where the pointer is over a target, and how.
struct VmDragPlace {
    int button = 0;
    int shift = 0;
    float x = 0;
    float y = 0;
    int state = 0;
};

/// A drag. What a signal does not tell has the initial value here, and setting it means nothing.
class VELMORA_QT_API VmDragArguments final : public QObject {
    Q_OBJECT
    Q_PROPERTY(int effect READ effect WRITE setEffect)
    Q_PROPERTY(bool defaultCursors READ defaultCursors WRITE setDefaultCursors)
    Q_PROPERTY(int dataFormat READ dataFormat)
    Q_PROPERTY(int button READ button)
    Q_PROPERTY(int shift READ shift)
    Q_PROPERTY(qreal x READ x)
    Q_PROPERTY(qreal y READ y)
    Q_PROPERTY(int state READ state)

public:
    explicit VmDragArguments(DataRef data, int effect = 0, const VmDragPlace& place = {},
                             int dataFormat = 0)
        : m_data(std::move(data)), m_effect(effect), m_place(place), m_dataFormat(dataFormat) {}

    /// Of `oleStartDrag`, `oleSetData`, `oleDragOver` and `oleDragDrop`.
    const DataRef& data() const { return m_data; }
    void setData(const DataRef& value) { m_data = value; }
    /// Of `oleStartDrag` what the source allows, of the others what happens with the data: 0
    /// nothing, 1 a copy, 2 a move, 0x80000000 scrolling as well.
    int effect() const { return m_effect; }
    void setEffect(int value) { m_effect = value; }
    /// Of `oleGiveFeedback`: whether the platform shows the effect by its own pointers.
    bool defaultCursors() const { return m_defaultCursors; }
    void setDefaultCursors(bool value) { m_defaultCursors = value; }
    /// Of `oleSetData`: the format in which the data is asked for.
    int dataFormat() const { return m_dataFormat; }

    // Of `oleDragOver` and `oleDragDrop`. State: 0 the pointer enters, 1 it leaves, 2 it is over.
    int button() const { return m_place.button; }
    int shift() const { return m_place.shift; }
    qreal x() const { return m_place.x; }
    qreal y() const { return m_place.y; }
    int state() const { return m_place.state; }

private:
    DataRef m_data;
    int m_effect;
    VmDragPlace m_place;
    int m_dataFormat;
    bool m_defaultCursors = true;
};

}  // namespace velmora
