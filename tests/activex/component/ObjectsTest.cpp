#include "hosts/activex/com/ComDataObject.h"
#include "hosts/activex/control/ControlClass.h"
#include "tests/activex/component/ComponentTest.h"
#include "tests/support/Refusals.h"

#include <bit>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

namespace velmora {
namespace {

TEST(Controls, NameTheirPages) {
    IUnknown* const controls[] = {NewCalendar().Detach(), NewBox().Detach()};
    for (ULONG i = 0; i < 2; ++i) {
        ComPtr<ISpecifyPropertyPages> control;
        controls[i]->QueryInterface(IID_PPV_ARGS(&control));
        controls[i]->Release();
        CAUUID pages{};
        EXPECT_EQ(control->GetPages(&pages), S_OK);
        EXPECT_EQ(pages.cElems, 3 + i) << "the system of the tests has none for colors and fonts";
        EXPECT_TRUE(std::count(pages.pElems, pages.pElems + pages.cElems, kGeneralPage));
        CoTaskMemFree(pages.pElems);
        ComPtr<IPerPropertyBrowsing> browsing;
        control.As(&browsing);
        CLSID page{};
        EXPECT_EQ(browsing->MapPropertyToPage(2 + static_cast<DISPID>(i), &page), S_OK);  // DateMax
        EXPECT_EQ(page, kGeneralPage);
        const DISPID color = 28 + static_cast<DISPID>(i);  // TodayBackColor
        EXPECT_EQ(browsing->MapPropertyToPage(color, &page), S_OK);
        EXPECT_EQ(page, kLookPage);
        ComPtr<ICategorizeProperties> groups;
        control.As(&groups);
        int group = 0;
        BSTR name = nullptr;
        EXPECT_EQ(groups->MapPropertyToCategory(color, &group), S_OK);
        EXPECT_EQ(groups->GetCategoryName(group, 0, &name), S_OK);
        EXPECT_EQ(FromBstr(name), "Days");
        SysFreeString(name);
        EXPECT_EQ(groups->GetCategoryName(7, 0, &name), E_FAIL);
        EXPECT_EQ(groups->MapPropertyToCategory(30000, &group), E_FAIL);
        EXPECT_EQ(browsing->MapPropertyToPage(-515, &page), PERPROP_E_NOPAGEAVAILABLE);  // hWnd
    }
}

TEST(Days, ReportTheirChangesAlsoBeyondTheirControl) {
    const long before = ModuleLock::Count();
    std::vector<std::string> changes;
    {
        ComPtr<::_VmCalendar> calendar = NewCalendar();
        PutProperty(calendar.Get(), "DateValue", vmhost::Value::Date(45000));
        const auto days = GetProperty(calendar.Get(), "Days").result;
        const auto day = GetProperty(days.Object(), "Item", {3}).result;
        calendar.Reset();
        const auto sink = vmhost::EventSink::Connect(
            days.Object(), [&](vmhost::Event& event) { changes.push_back(event.Text()); });
        EXPECT_EQ(PutProperty(day.Object(), "BackColor", 255).Number(), 0);
        EXPECT_EQ(PutProperty(day.Object(), "Picture", static_cast<IDispatch*>(nullptr)).Number(),
                  0);
        EXPECT_NE(GetProperty(day.Object(), "Dirty").result.Number(), 0);
        sink->Disconnect();
    }
    EXPECT_EQ(changes, (std::vector<std::string>{"DayChanged(2023-03-03, \"BackColor\")",
                                                 "DayChanged(2023-03-03, \"Picture\")"}));
    EXPECT_EQ(ModuleLock::Count(), before);
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

/// What dragging within one program does not show.
TEST(Data, ComeBackFromAnotherProgramAsTheyWere) {
    const auto image = std::make_shared<PixelImage>(PixelImage{1, 1, {0xFF010203}});
    const auto data = std::make_shared<HeldData>();
    const auto registered = static_cast<std::int16_t>(RegisterClipboardFormatW(L"Velmora Test"));
    data->SetData(kTextFormat, "a\xe2\x82\xac");
    data->SetData(registered, "raw");
    data->SetData(kBitmapFormat, Variant());
    const auto offered = OfferData(data, [&](DataRef wanted, std::int16_t format) {
        wanted->SetData(format, Variant(ObjectRef(std::make_shared<StdPicture>(
                                    PictureType::Bitmap, Size{26, 26}, image))));
    });
    const DataRef seen = WrapData(*offered.Get());
    EXPECT_EQ(seen->GetData(kTextFormat), data->GetData(kTextFormat));
    EXPECT_EQ(seen->GetData(registered), Variant("raw"));
    const auto picture = ToObject<StdPicture>(seen->GetData(kBitmapFormat));
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->Image()->pixels, image->pixels);
    EXPECT_FALSE(seen->HasFormat(14));
    ComPtr<IEnumFORMATETC> formats;
    ASSERT_EQ(offered->EnumFormatEtc(DATADIR_GET, &formats), S_OK);
    ULONG count = 0;
    FORMATETC all[8];
    formats->Next(8, all, &count);
    EXPECT_EQ(count, 4u) << "text stands there twice";
}

TEST(ComVariant, EveryTypeOfAClientBecomesOneOfTheCoreOrIsRefused) {
    static LONG referred = -7;
    const auto objects = std::make_shared<ControlObjects>();
    const struct {
        VARTYPE type;
        LONGLONG value;  // the bits
        Variant expected;
        int refused = 0;
    } cases[] = {
        {VT_EMPTY, 0, Variant()},
        {VT_NULL, 0, Null()},
        {VT_I1, -3, std::int16_t{-3}},
        {VT_UI1, 200, std::int16_t{200}},
        {VT_I2, -3, std::int16_t{-3}},
        {VT_UI2, 65535, 65535},
        {VT_I4, -5, -5},
        {VT_INT, -5, -5},
        {VT_UI4, 0x8000000F, std::int32_t(-2147483633)},  // a colour
        {VT_I8, 2147483647, 2147483647},
        {VT_I8, 2147483648, Variant(), 6},
        {VT_I8, std::numeric_limits<LONGLONG>::min(), Variant(), 6},
        {VT_UI8, 2147483647, 2147483647},
        {VT_UI8, -1, Variant(), 6},
        {VT_R4, 0x3FC00000, 1.5},
        {VT_CY, 25000, 2.5},
        {VT_DATE, std::bit_cast<LONGLONG>(43905.5), Date(43905.5)},
        {VT_BSTR, 0, ""},
        {VT_BOOL, VARIANT_TRUE, true},
        {VT_DISPATCH, 0, ObjectRef()},
        {VT_BYREF | VT_I4, reinterpret_cast<LONG_PTR>(&referred), -7},
        {VT_ERROR, DISP_E_PARAMNOTFOUND, Variant()},  // a missing argument
        {VT_ERROR, E_FAIL, Variant(), 13},
        {VT_ARRAY | VT_I4, 0, Variant(), 13},
    };
    for (const auto& sample : cases) {
        VARIANT value{};
        V_VT(&value) = sample.type;
        V_I8(&value) = sample.value;
        Variant core;
        const auto take = [&] { core = FromComVariant(value, *objects); };
        EXPECT_EQ(static_cast<int>(test::NumberOf(take)), sample.refused) << sample.type;
        EXPECT_EQ(core, sample.expected) << sample.type;
    }
}

constexpr char kReleased[] = "../../hosts/activex/server/Identifiers.txt";

std::string ContentOf(const char* path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

/// Names with their values.
std::set<std::string> ConstantsIn(const std::string& text) {
    const std::regex constant(R"(Vm\w+ = \d+)");
    return {std::sregex_token_iterator(text.begin(), text.end(), constant), {}};
}

/// One statement a line, without comments and help texts.
std::string Statements(std::string definition) {
    for (const auto& [pattern, text] :
         {std::pair(R"(//[^\n]*|#[^\n]*|,?\s*helpstring\(\s*"[^"]*"\))", ""),
          {R"(\s+)", " "},
          {R"( ?([;{}]) ?)", "$1\n"}}) {
        definition = std::regex_replace(definition, std::regex(pattern), text);
    }
    return definition;
}

TEST(TypeLibrary, NothingThatHasBeenReleasedMoves) {
    EXPECT_EQ(Statements(ContentOf(VELMORA_DEFINITION)), Statements(ContentOf(kReleased)))
        << "released, but changed; or new: append it to the record";
}

TEST(TypeLibrary, PublishesTheEnumerationsOfTheModel) {
    EXPECT_EQ(ConstantsIn(ContentOf(kReleased)),
              ConstantsIn(ContentOf("../../model/Enumerations.h")));
}

}  // namespace
}  // namespace velmora
