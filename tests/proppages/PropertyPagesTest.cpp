#include "proppages/PropertyPage.h"
#include "tests/support/PageScript.h"
#include "tests/support/TestBoxes.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace velmora::test {
namespace {

/// A control of any kind; what the page sets comes back as an edit, as native controls do.
struct FakeControl : PageList, PageCheckBox, PageText {
    void Enabled(bool value) override { enabled = value; }
    void Items(std::span<const std::string_view> names) override {
        items.assign(names.begin(), names.end());
        text.clear();
    }
    int ListIndex() const override {
        const auto item = std::ranges::find(items, text);
        return item == items.end() ? -1 : static_cast<int>(item - items.begin());
    }
    void ListIndex(int index) override {
        Text(index < 0 || index >= std::ssize(items) ? "" : items[static_cast<std::size_t>(index)]);
    }
    bool Checked() const override { return text == "true"; }
    void Checked(bool value) override { Text(value ? "true" : "false"); }
    std::string Text() const override { return text; }
    void Text(const std::string& value) override { text = value, edited(); }
    void ForeColor(Rgb value) override { color = value; }

    bool enabled = true;
    std::vector<std::string> items;
    std::string text;
    Rgb color = kValidText;
    std::function<void()> edited = [] {};
};

struct FakePage : PageSite {
    void Changed(bool value) override { changed = value, everChanged |= value; }
    void MessageBox(const std::string& text) override {
        *messages += (messages->empty() ? "" : "|") + text;
    }
    std::string* messages = nullptr;
    bool changed = false;
    bool everChanged = false;
    std::unique_ptr<PropertyPage> logic;
};

/// The three pages, beside each other as in a dialog.
class CorePages final : public PagePlayer {
public:
    CorePages() {
        const PageDefinition* const definitions[] = {&kGeneralPP, &kDropDownPP, &kDayPP};
        for (int i = 0; i < 3; ++i) Make(m_pages[i], *definitions[i]);
    }

    void Select(const std::string& object) override {
        if (object != "same") Make(object);
        for (FakePage& page : m_pages) Load(page);
    }
    void Enter(const std::string& control, const std::string& input) override {
        m_controls.at(control).Text(input);
    }
    std::string Shown(const std::string& name) override {
        const FakeControl& control = m_controls.at(name);
        return control.text + (control.color == kInvalidText ? " red" : "") +
               (control.enabled ? "" : " disabled");
    }
    bool IsChanged() override { return std::ranges::any_of(m_pages, &FakePage::changed); }
    std::string Apply() override {
        m_messages.clear();
        for (FakePage& page : m_pages) {
            try {
                if (page.changed && page.logic->ApplyChanges()) Load(page);
            } catch (const AutomationError& error) {
                page.MessageBox(error.what());
            }
        }
        return m_messages;
    }
    Variant Property(const std::string& name) override { return m_object->GetMember(name); }

private:
    void Make(const std::string& object) {
        m_object = object == "foreign" ? &foreign : nullptr;
        if (object == "calendar") m_object = m_calendar.emplace().calendar.get();
        if (object == "box") m_object = m_boxes.emplace().a.control.get();
        if (object == "calendar" || object == "box") {
            m_object->LetMember("DateValue", DateOf(Day(2024, 5, 15), 0.5));
        }
    }
    /// Over controls of the names of its fields.
    void Make(FakePage& page, const PageDefinition& definition) {
        std::vector<PageControlRef> controls;
        for (std::size_t i = 0; i < definition.fields.size(); ++i) {
            const FieldDefinition& field = definition.fields[i];
            FakeControl& control = m_controls[std::string(field.name)];
            control.edited = [&page, i] {
                if (page.logic) page.logic->OnEdited(i);
            };
            controls.push_back(static_cast<PageText*>(&control));
            if (field.kind == FieldKind::List) controls.back() = static_cast<PageList*>(&control);
            if (field.kind == FieldKind::CheckBox)
                controls.back() = static_cast<PageCheckBox*>(&control);
        }
        page.messages = &m_messages;
        page.logic = std::make_unique<PropertyPage>(definition, controls, page, m_second.dates);
    }
    /// The second object is none of the page's business.
    void Load(FakePage& page) {
        page.everChanged = false;
        AutomationObject* const objects[] = {m_object, m_second.calendar.get()};
        page.logic->SelectionChanged(std::span(objects, m_object ? 2 : 0));
        EXPECT_FALSE(page.changed || page.everChanged);
        EXPECT_EQ(m_second.calendar->FirstDayOfWeek(), VmSunday);
    }

    TestCalendar m_second;
    std::optional<TestCalendar> m_calendar;
    std::optional<TestBoxes> m_boxes;
    AutomationObject* m_object = nullptr;
    std::string m_messages;
    std::map<std::string, FakeControl> m_controls;
    FakePage m_pages[3];
};

TEST(PropertyPages, FollowTheScript) {
    CorePages pages;
    PlayPages(pages);
}

TEST(IsNumber, KeepsItsOddCases) {
    for (const char* text : {"0", "120", "-5", "1.5", "-", ".", "-.", "5."}) {
        EXPECT_TRUE(IsNumber(text)) << text;
    }
    for (const char* text : {"", "1.2.3", "5-", "--5", "+5", " 5", "5 ", "12a", "1e3", "1,0"}) {
        EXPECT_FALSE(IsNumber(text)) << text;
    }
}

}  // namespace
}  // namespace velmora::test
