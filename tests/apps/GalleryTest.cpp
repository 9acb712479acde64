#include "VelmoraCalendar/VmCalendarWidget.h"
#include "apps/gallery/EventLog.h"
#include "apps/gallery/SavedSettings.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QMetaProperty>
#include <QTemporaryDir>

namespace velmora {
namespace {

TEST(EventLog, FollowsEverySignal) {
    struct Calendar : VmCalendarWidget {
        using QObject::isSignalConnected;
    } calendar;
    EventLog log;
    log.Follow(calendar);
    const QMetaObject& type = VmCalendarWidget::staticMetaObject;
    for (int i = QWidget::staticMetaObject.methodCount(); i < type.methodCount(); ++i) {
        const bool ofProperty =
            type.method(i).parameterCount() == 0 && type.method(i).name().endsWith("Changed");
        if (type.method(i).methodType() != QMetaMethod::Signal || ofProperty)
            continue;  // propertyChanged tells
        EXPECT_TRUE(calendar.isSignalConnected(type.method(i))) << type.method(i).name().data();
    }
}

TEST(SavedSettings, ComeBackAtTheNextStartAndDamageIsReported) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("new/calendar.txt"));
    const SavedSettings settings(path);
    VmCalendarWidget first, second, third;
    EXPECT_EQ(settings.Load(first), QString());  // there is none yet
    first.setShowWeekend(false);
    EXPECT_EQ(settings.Save(first), QString());
    EXPECT_EQ(settings.Load(second), QString());
    EXPECT_FALSE(second.showWeekend());
    ASSERT_TRUE(QFile::resize(path, 30));
    EXPECT_TRUE(settings.Load(third).contains(path));
    EXPECT_TRUE(third.showWeekend());
}

}  // namespace
}  // namespace velmora
