#include "apps/gallery/Decorations.h"
#include "apps/gallery/EventLog.h"
#include "apps/gallery/GalleryWindow.h"
#include "apps/gallery/Pages.h"
#include "apps/gallery/PropertyPanel.h"
#include "apps/gallery/SavedSettings.h"
#include "hosts/qt/PropertyPageDialog.h"
#include "hosts/qt/VmCalDropDownWidget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFile>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QTemporaryDir>

#include <memory>

namespace velmora {
namespace {

struct OpenWidget : VmCalendarWidget {
    using QObject::isSignalConnected;
};

template <class Editor>
Editor& EditorOf(const PropertyPanel& panel, const char* name) {
    auto* editor = panel.findChild<Editor*>(QString::fromLatin1(name));
    if (!editor) throw std::logic_error(name);
    return *editor;
}

QStringList LinesOf(const EventLog& log) {
    QStringList lines;
    for (int i = 0; i < log.count(); ++i) lines += log.item(i)->text();
    return lines;
}

TEST(PropertyPanel, HasAnEditorForEveryPropertyButPictures) {
    VmCalendarWidget calendar;
    const PropertyPanel panel(calendar);
    const QMetaObject& type = VmCalendarWidget::staticMetaObject;
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i) {
        const bool editable = type.property(i).metaType().id() != QMetaType::QPixmap;
        EXPECT_EQ(panel.findChild<QWidget*>(type.property(i).name()) != nullptr, editable)
            << type.property(i).name();
    }
}

TEST(PropertyPanel, EditorsChangeAndShowWhatTheCalendarHas) {
    VmCalendarWidget calendar;
    const PropertyPanel panel(calendar);
    auto& style = EditorOf<QComboBox>(panel, "monthYearSelStyle");
    style.setCurrentIndex(style.findText(QStringLiteral("MonthSelCombo")));
    EditorOf<QCheckBox>(panel, "enabled").click();
    EditorOf<QDateEdit>(panel, "dateValue").setDate(QDate(2001, 2, 3));
    EXPECT_EQ(calendar.monthYearSelStyle(), VmCalendarWidget::MonthSelCombo);
    EXPECT_FALSE(calendar.isEnabled());
    EXPECT_EQ(calendar.dateValue(), QDate(2001, 2, 3));

    calendar.setTodayBackColor(QColor(1, 2, 3));
    calendar.setMonthYearSelStyle(VmCalendarWidget::MonthSelNone);
    calendar.setDateValue(QDate(1999, 12, 31));
    EXPECT_EQ(EditorOf<QPushButton>(panel, "todayBackColor").text(), QStringLiteral("#010203"));
    EXPECT_EQ(style.currentText(), QStringLiteral("MonthSelNone"));
    EXPECT_EQ(EditorOf<QDateEdit>(panel, "dateValue").date(), QDate(1999, 12, 31));
}

TEST(PropertyPanel, RefusedValueGivesWayToTheKeptOne) {
    VmCalendarWidget calendar;
    calendar.setDateMin(QDate(2000, 1, 1));
    const QDate before = calendar.dateMax();
    const PropertyPanel panel(calendar);
    EditorOf<QDateEdit>(panel, "dateMax").setDate(QDate(1990, 5, 31));
    EXPECT_EQ(calendar.dateMax(), before);
    EXPECT_EQ(EditorOf<QDateEdit>(panel, "dateMax").date(), before);
}

TEST(EventLog, FollowsEverySignal) {
    OpenWidget calendar;
    EventLog log;
    log.Follow(calendar);
    const QMetaObject& type = VmCalendarWidget::staticMetaObject;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
        if (type.method(i).methodType() != QMetaMethod::Signal) continue;
        EXPECT_TRUE(calendar.isSignalConnected(type.method(i))) << type.method(i).name().data();
    }
}

TEST(EventLog, NamesArgumentsAndCountsMovesInOneLine) {
    VmCalendarWidget calendar;
    EventLog log;
    log.Follow(calendar);
    emit calendar.dateChanged(QDate(2024, 2, 29));
    emit calendar.mouseMove(0, 0, 1, 2);
    emit calendar.mouseMove(0, 0, 3, 4);
    emit calendar.click();
    emit calendar.click();
    EXPECT_EQ(LinesOf(log), QStringList({"dateChanged(newDate: 2024-02-29)",
                                         "mouseMove(button: 0, shift: 0, x: 3, y: 4)  2 times",
                                         "click()", "click()"}));
    log.clear();
    emit calendar.mouseMove(0, 0, 5, 6);
    EXPECT_EQ(log.count(), 1);
}

TEST(EventLog, ForgetsTheOldestLines) {
    VmCalendarWidget calendar;
    EventLog log;
    log.Follow(calendar);
    for (int i = 0; i < EventLog::kMostLines + 10; ++i) emit calendar.dayChanged(i);
    EXPECT_EQ(log.count(), EventLog::kMostLines);
    EXPECT_EQ(log.item(0)->text(), QStringLiteral("dayChanged(newDay: 10)"));
}

TEST(Gallery, EveryShownMonthIsDecorated) {
    VmCalendarWidget calendar;
    calendar.setDateValue(QDate(2024, 5, 17));
    Decorate(calendar);
    for (const QDate date :
         {QDate(2024, 5, 1), QDate(2024, 6, 2), QDate(2025, 6, 2), QDate(1999, 12, 31)}) {
        calendar.setDateValue(date);
        EXPECT_EQ(calendar.day(5)->Caption(), "Dentist") << date.toString().toStdString();
        EXPECT_EQ(calendar.day(6)->Caption(), "");
        EXPECT_NE(calendar.day(20)->Picture(), nullptr);
    }
}

TEST(Gallery, EveryPageCanBeShownAndEndsAlone) {
    for (const Page& page : Pages()) {
        const std::unique_ptr<QWidget> widget(page.make(QDate(2024, 5, 17)));
        const auto calendars = widget->findChildren<VmCalendarWidget*>();
        const auto boxes = widget->findChildren<VmCalDropDownWidget*>();
        ASSERT_FALSE(calendars.isEmpty() && boxes.isEmpty()) << page.name;
        for (const VmCalDropDownWidget* box : boxes) {
            EXPECT_EQ(box->dateValue().date(), QDate(2024, 5, 17)) << page.name;
        }
        for (const VmCalendarWidget* calendar : calendars) {
            EXPECT_EQ(calendar->dateValue(), QDate(2024, 5, 17)) << page.name;
        }
        EXPECT_EQ(PageIndex(page.name), &page - Pages().data());
        EXPECT_FALSE(widget->grab().isNull());
    }
    EXPECT_EQ(PageIndex(QStringLiteral("none")), -1);
}

TEST(Gallery, PropertyPagesAreThoseOfTheControlThatHadTheFocus) {
    GalleryWindow window(QDate(2024, 5, 17));
    window.show();
    QApplication::setActiveWindow(&window);
    const auto edit = [&window](const char* control, const QString& text) {
        window.ShowProperties();
        auto* const dialog = window.findChild<PropertyPageDialog*>();
        dialog->findChild<QLineEdit*>(QLatin1String(control))->setText(text);
        dialog->accept();
        delete dialog;
    };
    edit("txtDateValue", QStringLiteral("2001-02-03"));
    EXPECT_EQ(window.findChild<VmCalendarWidget*>()->dateValue(), QDate(2001, 2, 3));
    window.ShowPage(PageIndex(QStringLiteral("date-boxes")));
    auto* const second = window.findChildren<VmCalDropDownWidget*>().at(1);
    second->setFocus();
    edit("txtDropDownWidth", QStringLiteral("333"));
    EXPECT_EQ(second->dropDownWidth(), 333);
}

TEST(SavedSettings, ComeBackAtTheNextStartAndDamageIsReported) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("new/calendar.txt"));
    const SavedSettings settings(path);
    VmCalendarWidget first;
    EXPECT_EQ(settings.Load(first), QString());  // there is none yet
    first.setShowWeekend(false);
    first.setTodayBackColor(QColor(1, 2, 3));
    first.setDateValue(QDate(2001, 2, 3));
    EXPECT_EQ(settings.Save(first), QString());

    VmCalendarWidget second;
    const PropertyPanel panel(second);
    EXPECT_EQ(settings.Load(second), QString());
    EXPECT_FALSE(EditorOf<QCheckBox>(panel, "showWeekend").isChecked());
    EXPECT_EQ(second.todayBackColor(), QColor(1, 2, 3));
    EXPECT_EQ(second.dateValue(), QDate(2001, 2, 3));

    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Append));
    file.write("nonsense\n");
    file.close();
    VmCalendarWidget third;
    EXPECT_TRUE(settings.Load(third).contains(path));
    EXPECT_TRUE(third.showWeekend());
}

}  // namespace
}  // namespace velmora
