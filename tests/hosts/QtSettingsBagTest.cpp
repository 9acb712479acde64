#include "VelmoraCalendar/QtSettingsBag.h"
#include "tests/support/PropertyCases.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

namespace velmora::test {
namespace {

class QtSettingsBagTest : public testing::Test {
protected:
    QString Path() const { return m_folder.filePath("settings.ini"); }

    /// Does it to the bag, as another run of the program.
    template <class Action>
    void InARun(Action action, const char* group = "Form/Calendar") const {
        QSettings settings(Path(), QSettings::IniFormat);
        QtSettingsBag bag(settings, group);
        action(bag);
    }
    Variant Reread(std::string_view name, const char* group = "Form/Calendar") const {
        Variant value;
        InARun([&](PropertyBag& bag) { value = bag.ReadProperty(name, "missing"); }, group);
        return value;
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(QtSettingsBagTest, EveryValueComesBackInAnotherRun) {
    const auto values = AwkwardValues();
    InARun([&](PropertyBag& bag) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            bag.WriteProperty("Value" + std::to_string(i), values[i], Variant());
        }
    });
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(Described(Reread("Value" + std::to_string(i))), Described(values[i]));
    }
}

TEST_F(QtSettingsBagTest, ADefaultRemovesTheEntryOfBefore) {
    for (const auto& [group, kept] : {std::pair("Group", "Group/Kept"), {"", "Kept"}}) {
        QFile::remove(Path());
        InARun(
            [](PropertyBag& bag) {
                bag.WriteProperty("Kept", std::int32_t{1}, Variant());
                for (const int day : {4, 5}) bag.WriteProperty("Day", Date(day), std::int32_t{5});
            },
            group);
        EXPECT_EQ(QSettings(Path(), QSettings::IniFormat).allKeys(), QStringList{kept});
    }
}

TEST_F(QtSettingsBagTest, ReadsEntriesThatOthersWrote) {
    QFile file(Path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(
        "[Form]\nCalendar\\Number=3\nCalendar\\Flag=true\nCalendar\\Words=one, two\n"
        "Calendar\\Damaged=int32 x\nCalendar\\Font=font \"A, B\" 9\n"
        "Calendar\\Day=date 43905.5\nCalendar\\Nothing=\n");
    file.close();
    const std::pair<const char*, Variant> entries[] = {
        {"Number", "3"},        {"Flag", "true"}, {"Words", "one, two"}, {"Damaged", "int32 x"},
        {"Day", Date(43905.5)}, {"Nothing", ""},  {"Absent", "missing"}};
    for (const auto& [name, value] : entries) EXPECT_EQ(Reread(name), value) << name;

    QSettings settings(Path(), QSettings::IniFormat);
    const std::pair<QVariant, Variant> kinds[] = {{5, std::int32_t{5}},
                                                  {0x80000005u, 0x80000005u},
                                                  {qlonglong{5000000000}, 5e9},
                                                  {true, true},
                                                  {0.5, 0.5}};
    for (const auto& [stored, value] : kinds) {
        settings.setValue("Kind", stored);
        EXPECT_EQ(QtSettingsBag(settings).ReadProperty("Kind", Variant()), value);
    }
}

}  // namespace
}  // namespace velmora::test
