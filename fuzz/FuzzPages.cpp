#include "fuzz/FuzzValues.h"
#include "platform/AutomationError.h"
#include "proppages/PropertyPage.h"
#include "tests/support/TestBoxes.h"

#include <array>
#include <memory>
#include <vector>

namespace velmora::fuzz {
namespace {

/// A list, check box or text of a page; what the page sets comes back as an edit.
struct Field : PageList, PageCheckBox, PageText {
    void Enabled(bool) override {}
    void Items(std::span<const std::string_view> items) override {
        count = static_cast<int>(items.size());
    }
    int ListIndex() const override { return index; }
    void ListIndex(int value) override { index = value, edited(); }
    bool Checked() const override { return index > 0; }
    void Checked(bool value) override { index = value ? 1 : 0, edited(); }
    std::string Text() const override { return text; }
    void Text(const std::string& value) override { text = value, edited(); }
    void ForeColor(Rgb) override {}

    int count = 2;
    int index = -1;
    std::string text;
    std::function<void()> edited = [] {};
};

struct Site : PageSite {
    void Changed(bool value) override {
        if (value && loading) Fail("what a page loads counts as edited");
        changed = value;
    }
    void MessageBox(const std::string&) override {}
    bool changed = false;
    bool loading = true;
    std::string Translated(std::string_view text) const override { return std::string(text); }
};

/// The three pages over one control.
class Pages {
public:
    Pages(AutomationObject& object, const Dates& dates) {
        for (const PageDefinition* const page : {&kGeneralPP, &kDropDownPP, &kDayPP}) {
            std::vector<PageControlRef> controls;
            const std::size_t place = m_pages.size();
            for (std::size_t i = 0; i < page->fields.size(); ++i) {
                Field& field = m_f[m_used++];
                field.edited = [this, place, i] {
                    if (place < m_pages.size()) m_pages[place]->OnEdited(i);
                };
                switch (page->fields[i].kind) {
                    case FieldKind::List:
                        controls.emplace_back(static_cast<PageList*>(&field));
                        break;
                    case FieldKind::CheckBox:
                        controls.emplace_back(static_cast<PageCheckBox*>(&field));
                        break;
                    default: controls.emplace_back(static_cast<PageText*>(&field));
                }
            }
            m_pages.push_back(std::make_unique<PropertyPage>(*page, controls, m_site, dates));
        }
        AutomationObject* const selected[] = {&object};
        for (const auto& page : m_pages) page->SelectionChanged(selected);
        if (m_site.changed) Fail("loading marks a page as changed");
        m_site.loading = false;
    }

    void Edit(ByteReader& bytes) {
        Field& field = m_f[bytes.Take<std::uint8_t>() % m_f.size()];
        const auto index = bytes.Take<std::uint8_t>();
        if (field.count > 0) field.ListIndex(index % (field.count + 1) - 1);
        field.Text(std::string(bytes.TakeText(index % 32)));
    }
    void Apply(ByteReader& bytes) {
        const bool before = m_site.changed;
        try {
            m_pages[bytes.Take<std::uint8_t>() % 3]->ApplyChanges();
        } catch (const AutomationError&) {
            if (m_site.changed != before) Fail("a refused page counts as applied");
        }
    }

private:
    std::array<Field, 20> m_f;
    Site m_site;
    std::size_t m_used = 0;
    std::vector<std::unique_ptr<PropertyPage>> m_pages;
};

}  // namespace
}  // namespace velmora::fuzz

/// What users type and choose on the pages of a calendar or a date box.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    constexpr int kMostDeeds = 64;
    fuzz::ByteReader bytes(data, size);
    test::TestCalendar calendar;
    test::TestBoxes boxes;
    const bool isBox = bytes.Take<std::uint8_t>() % 2 == 1;
    AutomationObject& object =
        isBox ? static_cast<AutomationObject&>(*boxes.a.control) : *calendar.calendar;
    auto pages = std::make_unique<fuzz::Pages>(object, calendar.dates);
    for (int i = 0; i < kMostDeeds && !bytes.AtEnd(); ++i) {
        switch (bytes.Take<std::uint8_t>() % 8) {
            case 0:
                fuzz::Set(object, bytes);
                pages = std::make_unique<fuzz::Pages>(object, calendar.dates);
                break;
            case 1:
            case 2: pages->Apply(bytes); break;
            default: pages->Edit(bytes); break;
        }
        if (const auto broken = calendar.BrokenInvariant(); !broken.empty()) fuzz::Fail(broken);
    }
    return 0;
}
