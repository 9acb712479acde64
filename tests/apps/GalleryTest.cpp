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
#include <QDateEdit>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>

#include <memory>

namespace velmora {
namespace {

struct OpenWidget : VmCalendarWidget {
    using QObject::isSignalConnected;
};

TEST(PropertyPanel, HasAnEditorForEveryPropertyButPicturesThatFollowsTheCalendar) {
    VmCalendarWidget calendar;
    const PropertyPanel panel(calendar);
    const QMetaObject& type = VmCalendarWidget::staticMetaObject;
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i) {
        const bool editable = type.property(i).metaType().id() != QMetaType::QPixmap;
        EXPECT_EQ(panel.findChild<QWidget*>(type.property(i).name()) != nullptr, editable)
            << type.property(i).name();
    }
    auto& latest = *panel.findChild<QDateEdit*>("dateMax");
    latest.setDate(QDate(2040, 5, 31));
    EXPECT_EQ(calendar.dateMax(), QDate(2040, 5, 31));
    calendar.setDateMin(QDate(2000, 1, 1));
    latest.setDate(QDate(1990, 5, 31));  // refused
    EXPECT_EQ(latest.date(), QDate(2040, 5, 31));
    calendar.setShowWeekend(false);
    EXPECT_FALSE(panel.findChild<QCheckBox*>("showWeekend")->isChecked());
}

TEST(EventLog, FollowsEverySignalAndForgetsTheOldest) {
    OpenWidget calendar;
    EventLog log;
    log.Follow(calendar);
    const QMetaObject& type = VmCalendarWidget::staticMetaObject;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
        if (type.method(i).methodType() != QMetaMethod::Signal) continue;
        EXPECT_TRUE(calendar.isSignalConnected(type.method(i))) << type.method(i).name().data();
    }
    for (int i = 0; i < EventLog::kMostLines + 10; ++i) emit calendar.dayChanged(i);
    EXPECT_EQ(log.count(), EventLog::kMostLines);
    emit calendar.mouseMove(0, 0, 1, 2);
    emit calendar.mouseMove(0, 0, 3, 4);
    EXPECT_EQ(log.item(EventLog::kMostLines - 1)->text(),
              QStringLiteral("mouseMove(button: 0, shift: 0, x: 3, y: 4)  2 times"));
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
    first.setDateValue(QDate(2001, 2, 3));
    EXPECT_EQ(settings.Save(first), QString());

    VmCalendarWidget second;
    EXPECT_EQ(settings.Load(second), QString());
    EXPECT_FALSE(second.showWeekend());
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
