#include "tests/hosts/PageInput.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QMetaProperty>
#include <QUiLoader>
#include <QUndoStack>
#include <QtDesigner/QDesignerComponents>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerIntegration>
#include <QtDesigner/QDesignerPropertyEditorInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionManager>
#include <QtDesigner/QFormBuilder>

#include <memory>

/// The plug-in as Designer and the loaders of forms see it. Its classes are not those that this
/// program links, so its objects are known by names only.
namespace velmora {
namespace {

constexpr const char* kControls[] = {"calendar", "dateBox"};

constexpr char kForm[] = R"(<ui version="4.0">
 <class>Form</class>
 <widget class="QWidget" name="Form">
  <widget class="velmora::VmCalendarWidget" name="calendar"/>
  <widget class="velmora::VmCalDropDownWidget" name="dateBox"/>
 </widget>
</ui>
)";

/// Another value than the property has, which a new control takes in any order.
QVariant Another(const QMetaProperty& property, const QVariant& current) {
    const QByteArray name = property.name();
    if (name == "dateMin") return QDate(2001, 2, 1);
    if (name == "dateMax") return QDate(2040, 11, 30);
    if (property.isEnumType()) {
        const QMetaEnum type = property.enumerator();
        return type.value(type.value(0) == current.toInt() ? 1 : 0);
    }
    switch (property.metaType().id()) {
        case QMetaType::Bool: return !current.toBool();
        case QMetaType::Int: return current.toInt() + 7;
        case QMetaType::QString: return QStringLiteral("yyyy <dd> & mm");
        case QMetaType::QDate: return QDate(2024, 5, 17);
        case QMetaType::QDateTime: return QDateTime(QDate(2024, 5, 17), QTime(9, 30));
        case QMetaType::QColor: return QColor(1, 2, 3);
        case QMetaType::QFont: return QFont(QStringLiteral("DejaVu Sans"), 17, QFont::Bold);
        default: return {};
    }
}

/// The control's own properties that a form can hold; a pixmap is a reference to a file there.
QList<QMetaProperty> FormProperties(const QWidget& control) {
    QList<QMetaProperty> properties;
    const QMetaObject& type = *control.metaObject();
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i) {
        const QMetaProperty property = type.property(i);
        if (property.isStored() && property.metaType().id() != QMetaType::QPixmap) {
            properties += property;
        }
    }
    return properties;
}

class Builder : public QFormBuilder {
public:
    Builder() {
        for (const QString& path : QApplication::libraryPaths()) {
            addPluginPath(path + QStringLiteral("/designer"));
        }
    }
};

template <class Loader>
std::unique_ptr<QWidget> Load(QByteArray text) {
    QBuffer file(&text);
    file.open(QIODevice::ReadOnly);
    return std::unique_ptr<QWidget>(Loader().load(&file));
}

/// Designer without its main window.
class DesignerForm : public testing::Test {
protected:
    DesignerForm() {
        QDesignerComponents::initializeResources();
        m_core.reset(QDesignerComponents::createFormEditor(nullptr));
        m_core->setPropertyEditor(
            QDesignerComponents::createPropertyEditor(m_core.get(), &m_panel));
        QDesignerComponents::initializePlugins(m_core.get());
        QDesignerComponents::createTaskMenu(m_core.get(), m_core.get());
        new QDesignerIntegration(m_core.get(), m_core.get());
        m_form = m_core->formWindowManager()->createFormWindow(&m_panel);
        if (!m_form->setContents(QString::fromLatin1(kForm))) throw std::logic_error("no form");
        m_core->formWindowManager()->setActiveFormWindow(m_form);
        m_start = m_form->contents();
    }

    QWidget& Control(const char* name) {
        return *m_form->mainContainer()->findChild<QWidget*>(QLatin1String(name));
    }
    /// The pages, opened from the context menu of that control.
    QWidget& OpenPages(const char* name) {
        auto* const menu =
            qt_extension<QDesignerTaskMenuExtension*>(m_core->extensionManager(), &Control(name));
        menu->taskActions().constFirst()->trigger();
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && window->inherits("velmora::PropertyPageDialog")) {
                return *window;
            }
        }
        throw std::logic_error("no pages");
    }
    /// The lines that the form has now and had not at first, without blanks.
    std::string NewLines() const {
        const QStringList before = m_start.split(QLatin1Char('\n'));
        QString lines;
        for (const QString& line : m_form->contents().split(QLatin1Char('\n'))) {
            if (!before.contains(line)) lines += line.trimmed();
        }
        return lines.toStdString();
    }

    std::unique_ptr<QDesignerFormEditorInterface> m_core;
    QWidget m_panel;
    QDesignerFormWindowInterface* m_form = nullptr;
    QString m_start;
};

TEST_F(DesignerForm, HoldsEveryPropertyForTheLoadersOfForms) {
    for (const char* const name : kControls) {
        QWidget& control = Control(name);
        ASSERT_GT(FormProperties(control).size(), 30) << control.metaObject()->className();
        for (const QMetaProperty& property : FormProperties(control)) {
            const QVariant before = property.read(&control);
            m_form->cursor()->setWidgetProperty(&control, QLatin1String(property.name()),
                                                Another(property, before));
            EXPECT_NE(property.read(&control), before) << name << '.' << property.name();
        }
    }
    for (const auto load : {Load<Builder>, Load<QUiLoader>}) {
        const auto loaded = load(m_form->contents().toUtf8());
        ASSERT_TRUE(loaded);
        for (const char* const name : kControls) {
            const auto* const control = loaded->findChild<QWidget*>(QLatin1String(name));
            ASSERT_TRUE(control) << name;
            for (const QMetaProperty& property : FormProperties(Control(name))) {
                EXPECT_EQ(property.read(control), property.read(&Control(name)))
                    << name << '.' << property.name();
            }
        }
    }
}

/// What the object refuses does not reach the form.
TEST_F(DesignerForm, WhatThePagesWriteIsSavedAndUndoneInOneStep) {
    QWidget& pages = OpenPages("calendar");
    EXPECT_EQ(Shown(pages, "txtDateFormat"), " disabled");
    Enter(pages, "cboMonthYearSelStyle", "VmMonthSelCombo");
    Enter(pages, "txtDateMax", "1/1/900");
    Enter(pages, "cboFirstDayOfWeek", "VmMonday");
    EXPECT_EQ(MessagesOf(Button(pages, "Apply")), "Invalid property value");
    Button(pages, "Cancel").click();
    EXPECT_EQ(NewLines(),
              "<property name=\"firstDayOfWeek\">"
              "<enum>velmora::VmCalendarWidget::Monday</enum>"
              "<property name=\"monthYearSelStyle\">"
              "<enum>velmora::VmCalendarWidget::MonthSelCombo</enum>");
    EXPECT_TRUE(m_form->isDirty());
    EXPECT_EQ(m_form->commandHistory()->count(), 1);
    m_form->commandHistory()->undo();
    EXPECT_EQ(m_form->contents(), m_start);
    EXPECT_EQ(Control("calendar").property("monthYearSelStyle").toInt(), 0);
}

/// A date box that was given no date shows the present moment: the form must not keep that.
TEST_F(DesignerForm, UntouchedDateStaysThePresentOne) {
    QWidget& pages = OpenPages("dateBox");
    Enter(pages, "chkEnabled", "false");
    Enter(pages, "txtDateFormat", "yyyy");
    EXPECT_EQ(MessagesOf(Button(pages, "OK")), "");
    EXPECT_EQ(NewLines(),
              "<property name=\"enabled\"><bool>false</bool>"
              "<property name=\"dateFormat\"><string>yyyy</string>");
}

TEST_F(DesignerForm, PropertiesStandInGroupsAndOtherWidgetsKeepTheirs) {
    const auto groupOf = [this](QWidget& widget, const char* property) {
        const auto* const sheet =
            qt_extension<QDesignerPropertySheetExtension*>(m_core->extensionManager(), &widget);
        return sheet->propertyGroup(sheet->indexOf(QLatin1String(property))).toStdString();
    };
    const char* const expected[][2] = {
        {"dateMin", "Dates"},           {"firstDayOfWeek", "Dates"},  {"dayFont", "Days"},
        {"todayBackColor", "Days"},     {"weekDayFont", "Week days"}, {"showWeekend", "Week days"},
        {"monthYearSelStyle", "Month"}, {"mouseIcon", "General"},     {"enabled", "QWidget"}};
    for (const char* const name : kControls) {
        for (const auto& [property, group] : expected) {
            EXPECT_EQ(groupOf(Control(name), property), group) << name << '.' << property;
        }
    }
    EXPECT_EQ(groupOf(*m_form->mainContainer(), "enabled"), "QWidget");
}

}  // namespace
}  // namespace velmora
