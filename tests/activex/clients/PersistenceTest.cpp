#include "apps/vmhost/FormFile.h"
#include "apps/vmhost/HostError.h"
#include "tests/activex/support/ClientTest.h"

#include <regex>

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
        ComPtr<TextBag> bag;
        bag = Adopt(new TextBag);
        place.where = bag;
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
        for (const PropertyInfo& property : PropertiesOf(site.Control())) {
            if (!property.writable) continue;
            const Value value = GetProperty(site.Control(), property.name).result;
            if (property.name.ends_with("Color")) {
                PutProperty(site.Control(), property.name, Value(0x123456));
            } else if (property.name.ends_with("Font")) {
                PutProperty(site.Control(), property.name, Value(MakeFont("Tahoma", 14).Get()));
            } else if (property.name.ends_with("Appearance") ||
                       property.name.ends_with("Alignment")) {
                PutProperty(site.Control(), property.name, Value(value.Number() ? 0 : 1));
            }
        }
        PutProperty(site.Control(), "DateMin", Value::Date(DayNumber(1500, 2, 1)));
        PutProperty(site.Control(), "DateMax", Value::Date(DayNumber(2500, 2, 28)));
        PutProperty(site.Control(), "DateValue", Value::Date(DayNumber(1601, 12, 31)));
        PutProperty(site.Control(), "FirstDayOfWeek", Value(3));
        PutProperty(site.Control(), "ShowWeekend", Value(false));
        PutProperty(site.Control(), "MonthYearSelStyle", Value(1));
        PutProperty(site.Control(), "Enabled", Value(false));
        PutProperty(site.Control(), "MousePointer", Value(short{2}));
        PutProperty(site.Control(), "DateFormat", Value("yyyy, \"mmm\" \xC3\xA4"));
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

TEST_F(Persistence, OneSchemaForAllBags) {
    for (const char* classText : {kCalendarClass, kBoxClass}) {
        ControlSite& original = AddChanged(classText);
        const auto lines = [](ControlSite& site) {
            ComPtr<TextBag> bag;
            bag.Attach(new TextBag);
            SaveControl(*site.Control(), {Medium::Bag, bag});
            // The system's font objects differ in what they have been realised as.
            return std::regex_replace(bag->Lines(), std::regex("Font = .*"), "Font");
        };
        const std::string saved = lines(original);
        ControlSite& copy =
            Add(classText, "Copy", kCalendarPlace, SaveOf(original, Medium::Stream));
        EXPECT_EQ(lines(copy), saved);
        form->RemoveAll();
    }
}

TEST_F(Persistence, TellsWhetherThereIsSomethingToSave) {
    ControlSite& site = AddCalendar();
    ComPtr<IPersistStreamInit> persist;
    ASSERT_EQ(site.Control()->QueryInterface(IID_PPV_ARGS(persist.GetAddressOf())), S_OK);
    SaveOf(site, Medium::Stream);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
    PutProperty(site.Control(), "DayAppearance", Value(0));
    EXPECT_EQ(persist->IsDirty(), S_OK);
    SaveOf(site, Medium::Stream);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
}

TEST_F(Persistence, DamagedStreamsDoNoHarm) {
    for (const char* classText : {kCalendarClass, kBoxClass}) {
        ControlSite& site = AddChanged(classText);
        ComPtr<IStream> whole;
        SaveOf(site, Medium::Stream).where.As(&whole);
        STATSTG state{};
        whole->Stat(&state, STATFLAG_NONAME);
        for (ULONGLONG length = 0; length < state.cbSize.QuadPart; length += 7) {
            ComPtr<IStream> cut;
            CreateStreamOnHGlobal(nullptr, TRUE, cut.GetAddressOf());
            whole->Seek({}, STREAM_SEEK_SET, nullptr);
            ULARGE_INTEGER part{};
            part.QuadPart = length;
            whole->CopyTo(cut.Get(), part, nullptr, nullptr);
            cut->Seek({}, STREAM_SEEK_SET, nullptr);
            try {
                ControlSite& copy = Add(classText, "Cut", kCalendarPlace, {Medium::Stream, cut});
                UpdateWindow(form->Window());
                form->Remove(copy);
            } catch (const HostError& error) {
                EXPECT_TRUE(FAILED(error.Code()));
            }
        }
        form->RemoveAll();
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
