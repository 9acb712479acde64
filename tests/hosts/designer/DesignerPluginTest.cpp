#include "tests/hosts/PageInput.h"
#include "tests/hosts/PropertyWalk.h"

#include <QBuffer>
#include <QUiLoader>
#include <QUndoStack>
#include <QtDesigner/QDesignerComponents>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerIntegration>
#include <QtDesigner/QDesignerPropertyEditorInterface>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionManager>

/// The plug-in as Designer and the loaders of forms see it. This program links no widgets, so
/// its objects are known by names only.
namespace velmora {
namespace {

constexpr char kForm[] = R"(<ui version="4.0">
 <class>Form</class>
 <widget class="QWidget" name="Form">
  <widget class="velmora::VmCalendarWidget" name="calendar"/>
  <widget class="velmora::VmCalDropDownWidget" name="dateBox"/>
 </widget>
</ui>
)";

/// Each property that a form can hold, with a value that it does not have at first. A pixmap would
/// be a reference to a file there, and the size of a font is a whole number.
template <class Action>
void ForEachProperty(Action action) {
    const std::pair<const char*, std::span<const test::PropertyRow>> controls[] = {
        {"calendar", test::kCalendarRows}, {"dateBox", test::kBoxRows}};
    for (const auto& [control, rows] : controls) {
        for (const test::PropertyRow& row : rows) {
            const bool whole = row.kind == test::Kind::Font || row.kind == test::Kind::Moment;
            if (row.kind == test::Kind::Icon) continue;
            action(control, NameOf(row), ValueOf(row, whole ? row.high : row.Changed()));
        }
    }
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

TEST_F(DesignerForm, HoldsEveryPropertyForALoaderOfFormsUntilItIsReset) {
    ForEachProperty([&](const char* control, const QByteArray& name, const QVariant& value) {
        m_form->cursor()->setWidgetProperty(&Control(control), QLatin1String(name), value);
    });
    QByteArray text = m_form->contents().toUtf8();
    QBuffer file(&text);
    file.open(QIODevice::ReadOnly);
    const std::unique_ptr<QWidget> loaded(QUiLoader().load(&file));
    ASSERT_TRUE(loaded);
    ForEachProperty([&](const char* control, const QByteArray& name, const QVariant& value) {
        QVariant held = loaded->findChild<QWidget*>(QLatin1String(control))->property(name);
        held.convert(value.metaType());
        EXPECT_EQ(held, value) << control << '.' << name.data();
        m_form->cursor()->resetWidgetProperty(&Control(control), QLatin1String(name));
    });
    EXPECT_EQ(NewLines(), "") << "nothing is left of what was reset";
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
              "<enum>velmora::VmDateWidget::Monday</enum>"
              "<property name=\"monthYearSelStyle\">"
              "<enum>velmora::VmCalendarWidget::MonthSelCombo</enum>");
    EXPECT_EQ(m_form->commandHistory()->count(), 1);
    m_form->commandHistory()->undo();
    EXPECT_EQ(m_form->contents(), m_start);
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

}  // namespace
}  // namespace velmora
