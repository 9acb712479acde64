#include "hosts/qt/QtSettingsBag.h"
#include "tests/support/StoreCases.h"

#include "hosts/qt/VmCalendarWidget.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

namespace velmora::test {
namespace {

class QtSettingsBagTest : public testing::Test {
protected:
    QString Path() const { return m_folder.filePath("settings.ini"); }

    /// What another run of the program reads from the file.
    Variant Reread(std::string_view name) const {
        QSettings settings(Path(), QSettings::IniFormat);
        return QtSettingsBag(settings, "Form/Calendar").ReadProperty(name, "missing");
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(QtSettingsBagTest, EveryValueComesBackInAnotherRun) {
    const auto values = AwkwardValues();
    {
        QSettings settings(Path(), QSettings::IniFormat);
        QtSettingsBag bag(settings, "Form/Calendar");
        for (std::size_t i = 0; i < values.size(); ++i) {
            bag.WriteProperty("Value" + std::to_string(i), values[i], Variant());
        }
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(Described(Reread("Value" + std::to_string(i))), Described(values[i]));
    }
}

TEST_F(QtSettingsBagTest, ADefaultRemovesTheEntryOfBefore) {
    QSettings settings(Path(), QSettings::IniFormat);
    QtSettingsBag bag(settings, "Group");
    bag.WriteProperty("Kept", std::int32_t{1}, Variant());
    for (const std::int32_t day : {4, 5}) bag.WriteProperty("Day", Date(day), std::int32_t{5});
    EXPECT_EQ(settings.allKeys(), QStringList{"Group/Kept"});
    EXPECT_EQ(bag.ReadProperty("Day", 7.0), Variant(7.0));
}

TEST_F(QtSettingsBagTest, ReadsEntriesThatOthersWrote) {
    QFile file(Path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(
        "[Form]\nCalendar\\Number=3\nCalendar\\Flag=true\nCalendar\\Words=one, two\n"
        "Calendar\\Damaged=int32 x\nCalendar\\Font=font \"A, B\" 9\n"
        "Calendar\\Day=date 43905.5\nCalendar\\Nothing=\n");
    file.close();
    EXPECT_EQ(Reread("Number"), Variant("3"));
    EXPECT_EQ(Reread("Flag"), Variant("true"));
    EXPECT_EQ(Reread("Words"), Variant("one, two"));
    EXPECT_EQ(Reread("Damaged"), Variant("int32 x"));
    EXPECT_EQ(Reread("Day"), Variant(Date(43905.5)));
    EXPECT_EQ(Reread("Nothing"), Variant(""));
    EXPECT_EQ(Reread("Absent"), Variant("missing"));

    QSettings settings(Path(), QSettings::IniFormat);
    settings.setValue("Int", 5);
    settings.setValue("Color", 0x80000005u);
    settings.setValue("Big", qlonglong{5000000000});
    settings.setValue("Flag", true);
    settings.setValue("Real", 0.5);
    QtSettingsBag bag(settings);
    EXPECT_EQ(bag.ReadProperty("Int", Variant()), Variant(std::int32_t{5}));
    EXPECT_EQ(bag.ReadProperty("Color", Variant()), Variant(0x80000005u));
    EXPECT_EQ(bag.ReadProperty("Big", Variant()), Variant(5e9));
    EXPECT_EQ(bag.ReadProperty("Flag", Variant()), Variant(true));
    EXPECT_EQ(bag.ReadProperty("Real", Variant()), Variant(0.5));
}

TEST_F(QtSettingsBagTest, ALaterRunFindsTheWholeCalendar) {
    for (const Look look : {Look::Default, Look::Lowest, Look::Highest, Look::Random}) {
        QFile::remove(Path());
        std::string before;
        {
            VmCalendarWidget widget;
            Dress(widget.calendar(), look, 3);
            QSettings settings(Path(), QSettings::IniFormat);
            QtSettingsBag bag(settings, "Form/Calendar");
            widget.calendar().WriteProps(bag);
            before = SavedFace(widget.calendar());
        }
        VmCalendarWidget widget;
        QSettings settings(Path(), QSettings::IniFormat);
        QtSettingsBag bag(settings, "Form/Calendar");
        widget.calendar().ReadProps(bag);
        EXPECT_EQ(SavedFace(widget.calendar()), before) << static_cast<int>(look);
    }
}

}  // namespace
}  // namespace velmora::test
