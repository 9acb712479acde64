#include "tests/hosts/PropertyWalk.h"
#include "tests/hosts/WidgetSupport.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>

namespace velmora {
namespace {

TEST(VmCalendarWidget, PropertiesFollowTheTable) {
    ExpectFollowsTheTable<Widget>(test::kCalendarRows, {"oleDropMode"});
}

TEST(VmCalendarWidget, ReportsItsOwnDisablingAlone) {
    QWidget parent;
    auto* const widget = new Widget(&parent);
    Names changed;
    QObject::connect(widget, &Widget::propertyChanged,
                     [&](const QString& name) { changed.push_back(name.toStdString()); });
    parent.setEnabled(false);
    EXPECT_TRUE(widget->calendar().Enabled());
    parent.setEnabled(true);
    EXPECT_EQ(changed, Names{});
    widget->setEnabled(false);
    EXPECT_FALSE(widget->calendar().Enabled());
    widget->calendar().Enabled(true);
    EXPECT_EQ(changed, (Names{"enabled", "enabled"}));
}

TEST(VmCalendarWidget, AboutBoxOutlivesTheWidget) {
    auto* const widget = new Widget;
    Prepare(*widget);
    widget->aboutBox();
    const QPointer<QDialog> box(qobject_cast<QDialog*>(QApplication::activeModalWidget()));
    delete widget;
    ASSERT_TRUE(box);
    box->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(box);
}

/// Whether the widget has used it.
bool IsUsed(QWidget* widget, int key, const QString& text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

/// What is not used is for the dialog around; arrows and their company never leave the selectors.
TEST(VmCalendarWidget, KeysAreAcceptedWhenUsed) {
    QWidget window;
    auto* const widget = new Widget(&window);
    widget->setMonthYearSelStyle(Widget::MonthSelCombo);
    Prepare(*widget);
    window.show();
    window.activateWindow();
    QApplication::processEvents();
    EXPECT_TRUE(IsUsed(widget, Qt::Key_Right));
    EXPECT_FALSE(IsUsed(widget, Qt::Key_A, "a"));
    auto* const year = widget->findChild<QLineEdit*>();
    for (QWidget* const child :
         {static_cast<QWidget*>(widget->findChild<QComboBox*>()), static_cast<QWidget*>(year)}) {
        child->setFocus();
        for (const int key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_End}) {
            EXPECT_TRUE(IsUsed(child, key)) << key;
        }
        EXPECT_FALSE(IsUsed(child, Qt::Key_F5));
    }
    for (const int key : {Qt::Key_Return, Qt::Key_Escape}) {
        EXPECT_FALSE(IsUsed(year, key)) << "nothing was typed";
        EXPECT_TRUE(IsUsed(year, Qt::Key_1, "1"));
        EXPECT_TRUE(IsUsed(year, key));
        QApplication::processEvents();
    }
}

}  // namespace
}  // namespace velmora
