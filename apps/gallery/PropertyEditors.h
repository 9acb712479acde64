#pragma once

#include <QMetaProperty>
#include <QVariant>
#include <QWidget>

#include <functional>

namespace velmora {

/// A small widget for the value of one property.
struct PropertyEditor {
    QWidget* widget = nullptr;                  // null where the property's type has no editor
    std::function<void(const QVariant&)> show;  // does not count as the user's own change
};

/// What the user's own change of a value goes to.
using WriteProperty = std::function<void(const QVariant&)>;

/// An editor by the property's type: enumerations, bool, int, QDate, QColor and QFont have one.
/// The widget is named as the property and belongs to `parent`.
PropertyEditor MakePropertyEditor(const QMetaProperty& property, QWidget* parent,
                                  WriteProperty write);

}  // namespace velmora
