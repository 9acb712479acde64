#include "apps/gallery/PropertyEditors.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDateEdit>
#include <QFontDialog>
#include <QIcon>
#include <QMetaEnum>
#include <QPixmap>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

namespace velmora {
namespace {

PropertyEditor EnumEditor(const QMetaEnum& type, QWidget* parent, const WriteProperty& write) {
    auto* box = new QComboBox(parent);
    for (int i = 0; i < type.keyCount(); ++i) {
        box->addItem(QString::fromLatin1(type.key(i)), type.value(i));
    }
    QObject::connect(box, &QComboBox::currentIndexChanged, box,
                     [box, write](int index) { write(box->itemData(index)); });
    return {box, [box](const QVariant& value) {
                const QSignalBlocker quiet(box);
                box->setCurrentIndex(box->findData(value.toInt()));
            }};
}

PropertyEditor BoolEditor(QWidget* parent, const WriteProperty& write) {
    auto* box = new QCheckBox(parent);
    QObject::connect(box, &QCheckBox::toggled, box, [write](bool value) { write(value); });
    return {box, [box](const QVariant& value) {
                const QSignalBlocker quiet(box);
                box->setChecked(value.toBool());
            }};
}

PropertyEditor IntEditor(QWidget* parent, const WriteProperty& write) {
    auto* box = new QSpinBox(parent);
    QObject::connect(box, &QSpinBox::valueChanged, box, [write](int value) { write(value); });
    return {box, [box](const QVariant& value) {
                const QSignalBlocker quiet(box);
                box->setValue(value.toInt());
            }};
}

PropertyEditor DateEditor(QWidget* parent, const WriteProperty& write) {
    auto* box = new QDateEdit(parent);
    box->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
    box->setDateRange(QDate(200, 1, 1), QDate(4600, 12, 31));
    box->setKeyboardTracking(false);
    QObject::connect(box, &QDateEdit::dateChanged, box, [write](QDate value) { write(value); });
    return {box, [box](const QVariant& value) {
                const QSignalBlocker quiet(box);
                box->setDate(value.toDate());
            }};
}

PropertyEditor ColorEditor(QWidget* parent, const WriteProperty& write) {
    auto* button = new QPushButton(parent);
    QObject::connect(button, &QPushButton::clicked, button, [button, write] {
        const QColor color = QColorDialog::getColor(QColor(button->text()), button->window());
        if (color.isValid()) write(color);
    });
    return {button, [button](const QVariant& value) {
                const auto color = value.value<QColor>();
                QPixmap swatch(button->iconSize());
                swatch.fill(color);
                button->setIcon(QIcon(swatch));
                button->setText(color.name());
            }};
}

PropertyEditor FontEditor(QWidget* parent, const WriteProperty& write) {
    auto* button = new QPushButton(parent);
    QObject::connect(button, &QPushButton::clicked, button, [button, write] {
        bool chosen = false;
        const QFont font = QFontDialog::getFont(&chosen, button->font(), button->window());
        if (chosen) write(font);
    });
    return {
        button, [button](const QVariant& value) {
            const auto font = value.value<QFont>();
            button->setFont(font);
            button->setText(font.family() + QLatin1Char(' ') + QString::number(font.pointSizeF()));
        }};
}

PropertyEditor EditorOfType(const QMetaProperty& property, QWidget* parent,
                            const WriteProperty& write) {
    if (property.isEnumType()) return EnumEditor(property.enumerator(), parent, write);
    switch (property.metaType().id()) {
        case QMetaType::Bool: return BoolEditor(parent, write);
        case QMetaType::Int: return IntEditor(parent, write);
        case QMetaType::QDate: return DateEditor(parent, write);
        case QMetaType::QColor: return ColorEditor(parent, write);
        case QMetaType::QFont: return FontEditor(parent, write);
        default: return {};
    }
}

}  // namespace

PropertyEditor MakePropertyEditor(const QMetaProperty& property, QWidget* parent,
                                  WriteProperty write) {
    PropertyEditor editor = EditorOfType(property, parent, write);
    if (editor.widget) editor.widget->setObjectName(QString::fromLatin1(property.name()));
    return editor;
}

}  // namespace velmora
