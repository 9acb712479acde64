#include "apps/gallery/EventLog.h"

#include <QMetaProperty>
#include <QStringList>

#include <type_traits>

namespace velmora {
namespace {

QString TextOf(QDate date) { return date.toString(Qt::ISODate); }
QString TextOf(const QString& text) { return text; }
/// The arguments of an event, by their names.
QString TextOf(const QObject* arguments) {
    QStringList values;
    const QMetaObject& type = *arguments->metaObject();
    for (int i = QObject::staticMetaObject.propertyCount(); i < type.propertyCount(); ++i) {
        const QMetaProperty property = type.property(i);
        values += QString::fromLatin1(property.name()) + QStringLiteral(" ") +
                  property.read(arguments).toString();
    }
    return values.join(QStringLiteral(", "));
}
template <class Number>
requires std::is_arithmetic_v<Number> QString TextOf(Number value) {
    return QString::number(value);
}

}  // namespace

EventLog::EventLog(QWidget* parent) : QListWidget(parent) {
    setSelectionMode(NoSelection);
    setUniformItemSizes(true);
}

template <class Widget, class... Args>
void EventLog::FollowSignal(VmCalendarWidget& calendar, void (Widget::*signal)(Args...)) {
    const QMetaMethod method = QMetaMethod::fromSignal(signal);
    connect(&calendar, signal, this,
            [this, method](Args... values) { Add(method, {TextOf(values)...}); });
}

void EventLog::Follow(VmCalendarWidget& calendar) {
    using Widget = VmCalendarWidget;
    const auto follow = [&](auto... members) { (FollowSignal(calendar, members), ...); };
    follow(&Widget::propertyChanged, &Widget::dateValueChanged, &Widget::click,
           &Widget::dateChanged, &Widget::dayChanged, &Widget::dblClick, &Widget::keyUp,
           &Widget::keyPress, &Widget::keyDown, &Widget::monthChanged, &Widget::mouseDown,
           &Widget::mouseMove, &Widget::mouseUp, &Widget::oleCompleteDrag, &Widget::oleDragDrop,
           &Widget::oleDragOver, &Widget::oleGiveFeedback, &Widget::oleSetData,
           &Widget::oleStartDrag, &Widget::yearChanged);
}

void EventLog::Add(const QMetaMethod& signal, const QStringList& values) {
    const QString name = QString::fromLatin1(signal.name());
    const QList<QByteArray> names = signal.parameterNames();
    QStringList arguments;
    for (qsizetype i = 0; i < values.size(); ++i) {
        arguments += QString::fromLatin1(names[i]) + QStringLiteral(": ") + values[i];
    }
    const QString line =
        name + QLatin1Char('(') + arguments.join(QStringLiteral(", ")) + QLatin1Char(')');
    static const QMetaMethod move = QMetaMethod::fromSignal(&VmCalendarWidget::mouseMove);
    m_moves = signal == move ? m_moves + 1 : 0;
    if (m_moves > 1 && count() > 0) {
        item(count() - 1)->setText(line + QStringLiteral("  %1 times").arg(m_moves));
        return;
    }
    if (count() == kMostLines) delete takeItem(0);
    addItem(line);
    scrollToBottom();
}

}  // namespace velmora
