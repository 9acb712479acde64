#include "ObjectsTest.h"
#include "hosts/activex/com/ComDataObject.h"
#include "hosts/activex/control/EventRelay.h"

namespace velmora {
namespace {

VARIANT Short(SHORT value) {
    VARIANT variant;
    V_VT(&variant) = VT_I2;
    V_I2(&variant) = value;
    return variant;
}

TEST(Controls, TakeColoursInEveryFormThatAScriptHas) {
    const auto calendar = NewCalendar();
    VARIANT unsignedColor;
    V_VT(&unsignedColor) = VT_UI4;
    V_UI4(&unsignedColor) = 0x80000005;
    const struct {
        VARIANT given;
        int refused;
        ::OLE_COLOR color;
    } cases[] = {{Real(2147483663.0), 0, 0x8000000F},
                 {Real(-2147483633.0), 0, 0x8000000F},
                 {unsignedColor, 0, 0x80000005},
                 {Short(255), 0, 255},
                 {Short(-1), 380, 255}};  // &HFFFF
    for (const auto& test : cases) {
        EXPECT_EQ(Put(calendar.Get(), L"MonthBackColor", test.given), test.refused);
        ::OLE_COLOR color = 0;
        EXPECT_EQ(calendar->get_MonthBackColor(&color), S_OK);
        EXPECT_EQ(color, test.color);
    }
}

// Events.

TEST(Controls, AHandlerChangesWhatComesByReference) {
    const auto objects = std::make_shared<ControlObjects>();
    const auto held = MakeDataObject();
    Event<Date&, std::int32_t&, bool&, DataRef&> event;
    RelayEvent(event, *objects, [&](std::span<VARIANT> values) {
        EXPECT_EQ(*V_DATEREF(&values[0]), 40000.0);
        *V_DATEREF(&values[0]) += 1;
        *V_I4REF(&values[1]) = 7;
        *V_BOOLREF(&values[2]) = VARIANT_TRUE;
        EXPECT_EQ(objects->FromClient(*V_DISPATCHREF(&values[3])), held);
        (*V_DISPATCHREF(&values[3]))->Release();
        *V_DISPATCHREF(&values[3]) = nullptr;
    });
    Date date(40000);
    std::int32_t effect = 1;
    bool flag = false;
    DataRef data = held;
    event.Raise(date, effect, flag, data);
    EXPECT_EQ(date, Date(40001));
    EXPECT_EQ(effect, 7);
    EXPECT_TRUE(flag);
    EXPECT_EQ(data, nullptr);
}

TEST(Controls, AClientMayRaiseTheMousesEvents) {
    const auto box = NewBox();
    short button = 1, shift = 2;
    float x = 3, y = 4;
    std::vector<double> seen;
    Listen(box.Get(), __uuidof(::__VmCalDropDown), [&](DISPID id, std::vector<VARIANT>& values) {
        if (id != 9) return;
        seen = {double(*V_I2REF(&values[0])), double(*V_I2REF(&values[1])), *V_R4REF(&values[2]),
                *V_R4REF(&values[3])};
    });
    EXPECT_EQ(box->MouseDown(&button, &shift, &x, &y), S_OK);
    EXPECT_EQ(seen, (std::vector<double>{1, 2, 3, 4}));
    EXPECT_EQ(box->MouseDown(nullptr, &shift, &x, &y), E_POINTER);
}

TEST(Controls, AHandlerMayDropTheLastReference) {
    const long before = ModuleLock::Count();
    for (const DISPID last : {2, 3, 8, 18}) {
        auto* calendar = NewCalendar().Detach();
        calendar->put_DateValue(Real(40000, VT_DATE));
        bool dropped = false;
        Listen(calendar, __uuidof(::__VmCalendar), [&](DISPID id, std::vector<VARIANT>&) {
            if (id != last || std::exchange(dropped, true)) return;
            calendar->Release();
        });
        EXPECT_EQ(calendar->put_DateValue(Real(44444, VT_DATE)), S_OK);
        EXPECT_TRUE(dropped) << last;
    }
    EXPECT_EQ(ModuleLock::Count(), before) << "something is left behind";
}

// Days.

TEST(Days, HaveOneIdentityAndAreEnumeratedAsTheyWereWhenTheMonthIsLeft) {
    const auto calendar = NewCalendar();
    calendar->put_DateValue(Real(45000, VT_DATE));  // 15 March 2023
    ComPtr<::_VmDays> days;
    ComPtr<::_VmDay> item, selected;
    ASSERT_EQ(calendar->get_Days(&days), S_OK);
    days->get_Item(15, &item);
    calendar->get_SelectedDay(&selected);
    EXPECT_EQ(item.Get(), selected.Get());
    DISPPARAMS none{};
    OwnedVariant result;
    ASSERT_EQ(days->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                           &none, &result, nullptr, nullptr),
              S_OK);
    const auto items = Query<IEnumVARIANT>(V_UNKNOWN(&result));
    calendar->put_DateValue(Real(44985, VT_DATE));  // February
    std::vector<DATE> dates;
    for (OwnedVariant next; items->Next(1, &next, nullptr) == S_OK; VariantClear(&next)) {
        DATE date = 0;
        Query<::_VmDay>(V_DISPATCH(&next))->get_DayDate(&date);
        dates.push_back(date);
    }
    ASSERT_EQ(dates.size(), 31u);
    EXPECT_EQ(dates.front(), 44986.0);
    EXPECT_EQ(dates.back(), 45016.0);
}

TEST(Days, ReportTheirChangesAlsoBeyondTheirControl) {
    const long before = ModuleLock::Count();
    {
        ComPtr<::_VmDays> days;
        ComPtr<::_VmDay> day;
        std::vector<std::string> changes;
        {
            const auto calendar = NewCalendar();
            calendar->put_DateValue(Real(45000, VT_DATE));
            calendar->get_Days(&days);
            days->get_Item(3, &day);
        }
        Listen(days.Get(), __uuidof(::__VmDays), [&](DISPID id, std::vector<VARIANT>& values) {
            changes.push_back(std::to_string(id) + " " +
                              std::to_string(int(*V_DATEREF(&values[0]))) + " " +
                              FromBstr(*V_BSTRREF(&values[1])));
        });
        EXPECT_EQ(Put(day.Get(), L"BackColor", Number(255)), 0);
        EXPECT_EQ(Put(day.Get(), L"ForeColor", Short(255)), 380);
        EXPECT_EQ(day->put_Picture(nullptr), S_OK);
        EXPECT_EQ(changes, (std::vector<std::string>{"1 44988 BackColor", "1 44988 Picture"}));
        VARIANT_BOOL dirty = VARIANT_FALSE;
        day->get_Dirty(&dirty);
        EXPECT_EQ(dirty, VARIANT_TRUE);
    }
    EXPECT_EQ(ModuleLock::Count(), before);
}

// Fonts and pictures.

TEST(Fonts, TheCoresCopyFollowsTheClients) {
    const auto objects = std::make_shared<ControlObjects>();
    std::vector<FontRef> changed;
    objects->Fonts().WhenFontChanges([&](const FontRef& font) { changed.push_back(font); });
    const auto core = std::make_shared<StdFont>();
    core->name = "A face that is not there";
    const auto client = objects->Fonts().ToClient(core);
    CY size;
    size.int64 = 240000;
    ASSERT_EQ(client->put_Size(size), S_OK);
    ASSERT_EQ(client->put_Italic(TRUE), S_OK);
    EXPECT_EQ(changed, (std::vector<FontRef>{core, core}));
    EXPECT_TRUE(core->italic);
    EXPECT_NEAR(core->size, 24, 1) << "whole pixels";
    EXPECT_EQ(core->name, "A face that is not there");
    EXPECT_EQ(objects->FromClient(client.Get()), core);
}

TEST(Pictures, KeepTheirIdentityAndTheirPixels) {
    const auto objects = std::make_shared<ControlObjects>();
    const auto image = std::make_shared<PixelImage>(PixelImage{2, 1, {0xFF102030, 0xFFFFEEDD}});
    for (const PictureType type : {PictureType::Bitmap, PictureType::Icon}) {
        const auto core = std::make_shared<StdPicture>(type, Size{53, 26}, image);
        const auto client = objects->ToClient(core);
        ASSERT_NE(client.Get(), nullptr);
        EXPECT_EQ(objects->ToClient(core).Get(), client.Get());
        EXPECT_EQ(objects->FromClient(client.Get()), core);

        const auto others = std::make_shared<ControlObjects>();
        const auto taken = ToObject<StdPicture>(others->FromClient(client.Get()));
        EXPECT_EQ(taken->Type(), type);
        EXPECT_EQ(others->ToClient(taken).Get(), client.Get());
        const auto kept = WithPixels(taken);
        ASSERT_NE(kept->Image(), nullptr);
        if (type == PictureType::Bitmap) {
            EXPECT_EQ(kept->Image()->pixels, image->pixels);
        }
    }
}

// Data objects.

TEST(Data, ComeBackFromAnotherProgramAsTheyWere) {
    const auto image = std::make_shared<PixelImage>(PixelImage{1, 1, {0xFF010203}});
    const auto data = MakeDataObject();
    data->SetData(kTextFormat, "a\xe2\x82\xac");
    data->SetData(kFilesFormat, "C:\\a.txt\nC:\\b c.txt");
    data->SetData(kBitmapFormat, Variant());
    const auto registered = static_cast<std::int16_t>(RegisterClipboardFormatW(L"Velmora Test"));
    data->SetData(registered, "raw");
    std::vector<std::int16_t> fetched;
    const auto offered = OfferData(data, [&](DataRef wanted, std::int16_t format) {
        fetched.push_back(format);
        wanted->SetData(format, Variant(ObjectRef(std::make_shared<StdPicture>(
                                    PictureType::Bitmap, Size{26, 26}, image))));
    });
    const DataRef seen = WrapData(*offered.Get());
    EXPECT_EQ(seen->GetData(kTextFormat), data->GetData(kTextFormat));
    EXPECT_EQ(seen->GetData(kFilesFormat), data->GetData(kFilesFormat));
    EXPECT_EQ(seen->GetData(registered), Variant("raw"));
    const auto picture = ToObject<StdPicture>(seen->GetData(kBitmapFormat));
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->Image()->pixels, image->pixels);
    EXPECT_EQ(fetched, std::vector<std::int16_t>{kBitmapFormat});
    EXPECT_FALSE(seen->HasFormat(14));

    ComPtr<IEnumFORMATETC> formats;
    ASSERT_EQ(offered->EnumFormatEtc(DATADIR_GET, &formats), S_OK);
    ULONG count = 0;
    FORMATETC all[8];
    formats->Next(8, all, &count);
    EXPECT_EQ(count, 5u) << "text stands there twice";
}

}  // namespace
}  // namespace velmora
