#include "apps/vmhost/FormFile.h"
#include "tests/activex/support/ClientTest.h"

#include <utility>

namespace velmora::vmhost {
namespace {

constexpr Medium kMedia[] = {Medium::Stream, Medium::Storage, Medium::Bag};

Saved NewPlace(Medium medium) {
    Saved place{medium, nullptr};
    if (medium == Medium::Stream) {
        ComPtr<IStream> stream;
        CreateStreamOnHGlobal(nullptr, TRUE, stream.GetAddressOf());
        place.where = stream;
    } else if (medium == Medium::Storage) {
        ComPtr<IStorage> storage;
        StgCreateDocfile(nullptr,
                         STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_CREATE | STGM_DELETEONRELEASE,
                         0, storage.GetAddressOf());
        place.where = storage;
    } else {
        place.where = Adopt(new TextBag);
    }
    return place;
}

void Rewind(const Saved& place) {
    ComPtr<IStream> stream;
    if (place.medium == Medium::Stream && SUCCEEDED(place.where.As(&stream))) {
        stream->Seek({}, STREAM_SEEK_SET, nullptr);
    }
}

/// Every readable property as text, objects by what shows in them.
std::vector<std::string> StateOf(const ControlSite& site) {
    std::vector<std::string> state;
    for (const PropertyInfo& property : PropertiesOf(site.Control())) {
        if (property.name == "hWnd" || property.name == "cboMonthhwnd") continue;
        const Value value = GetProperty(site.Control(), property.name).result;
        state.push_back(property.name + " = " + Readable(value.Get()));
        if (value.Type() == VT_DATE) state.push_back(std::to_string(value.Real()));
        ComPtr<IFont> font;
        if (!value.Object() ||
            FAILED(value.Object()->QueryInterface(IID_PPV_ARGS(font.GetAddressOf())))) {
            continue;
        }
        Value name;  // by its own interface: by name, each part would load a type library
        CY size{};
        BOOL bold = FALSE;
        V_VT(&name) = VT_BSTR;
        font->get_Name(&V_BSTR(&name));
        font->get_Size(&size);
        font->get_Bold(&bold);
        state.push_back(name.Text() + ' ' + std::to_string(size.Lo) + (bold ? " bold" : ""));
    }
    return state;
}

class Persistence : public ClientTest {
protected:
    /// A control with nothing left at its default that a container may save.
    ControlSite& AddChanged(const char* classText) {
        ControlSite& site = Add(classText, "Changed", kCalendarPlace);
        const ComPtr<IFontDisp> font = MakeFont("Tahoma", 14);
        EXPECT_TRUE(PutProperty(font.Get(), "Bold", true).Succeeded());
        for (const PropertyInfo& property : PropertiesOf(site.Control())) {
            if (!property.writable) continue;
            const Value value = GetProperty(site.Control(), property.name).result;
            if (property.name.ends_with("Color")) {
                PutProperty(site.Control(), property.name, Value(0x123456));
            } else if (property.name.ends_with("Font")) {
                PutProperty(site.Control(), property.name, font.Get());
            } else if (property.name.ends_with("Appearance") ||
                       property.name.ends_with("Alignment")) {
                PutProperty(site.Control(), property.name, Value(value.Number() ? 0 : 1));
            }
        }
        const std::pair<const char*, Value> others[] = {
            {"DateMin", Value::Date(DayNumber(1500, 2, 1))},
            {"DateMax", Value::Date(DayNumber(2500, 2, 28))},
            {"DateValue", Value::Date(DayNumber(1601, 12, 31) - 0.25)},  // at 6 o'clock
            {"FirstDayOfWeek", 3},
            {"ShowWeekend", false},
            {"MonthYearSelStyle", 1},
            {"Enabled", false},
            {"MousePointer", short{2}},
            {"MonthDisplay", 1},
            {"WeekDayDisplay", 3},
            {"DateFormat", "yyyy, \"mmm\" \xC3\xA4"}};
        for (const auto& [name, value] : others) {
            const bool put = PutProperty(site.Control(), name, value).Succeeded();
            EXPECT_EQ(put, classText == kBoxClass || name != std::string_view("DateFormat"))
                << name;
        }
        return site;
    }
    Saved SaveOf(ControlSite& site, Medium medium) {
        const Saved place = NewPlace(medium);
        SaveControl(*site.Control(), place);
        Rewind(place);
        return place;
    }
};

TEST_F(Persistence, GoesRoundByEveryInterfaceAndCrosswise) {
    for (const char* classText : {kCalendarClass, kBoxClass}) {
        ControlSite& original = AddChanged(classText);
        const std::vector<std::string> state = StateOf(original);
        for (const Medium first : kMedia) {
            ControlSite& copy = Add(classText, "Copy", kCalendarPlace, SaveOf(original, first));
            EXPECT_EQ(StateOf(copy), state) << classText << " by " << static_cast<int>(first);
            for (const Medium second : kMedia) {
                ControlSite& third = Add(classText, "Third", kCalendarPlace, SaveOf(copy, second));
                EXPECT_EQ(StateOf(third), state) << classText << " by " << static_cast<int>(first)
                                                 << " and " << static_cast<int>(second);
                form->Remove(third);
            }
            form->Remove(copy);
        }
        form->Remove(original);
    }
}

TEST_F(Persistence, FormsGoThroughAFile) {
    for (const Medium medium : kMedia) {
        AddChanged(kCalendarClass);
        AddChanged(kBoxClass);
        std::vector<std::vector<std::string>> states;
        for (const auto& site : form->Sites()) states.push_back(StateOf(*site.Get()));
        wchar_t folder[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        const std::wstring path = folder + std::to_wstring(GetCurrentProcessId()) + L"-form.vmform";
        SaveForm(*form.Get(), path, medium);
        LoadForm(*form.Get(), path);
        ASSERT_EQ(form->Sites().size(), 2U);
        for (std::size_t index = 0; index < 2; ++index) {
            EXPECT_EQ(StateOf(*form->Sites()[index].Get()), states[index]);
            EXPECT_TRUE(EqualRect(&form->Sites()[index]->Place(), &kCalendarPlace));
        }
        DeleteFileW(path.c_str());
        form->RemoveAll();
    }
}

}  // namespace
}  // namespace velmora::vmhost
