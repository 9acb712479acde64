#include "ObjectsTest.h"
#include "hosts/activex/com/ComDataObject.h"
#include "hosts/activex/control/ControlClass.h"

namespace velmora {
namespace {

using vmhost::GetProperty;
using vmhost::PutProperty;

TEST(Controls, NameTheirPages) {
    IUnknown* const controls[] = {NewCalendar().Detach(), NewBox().Detach()};
    for (ULONG i = 0; i < 2; ++i) {
        ComPtr<ISpecifyPropertyPages> control;
        controls[i]->QueryInterface(IID_PPV_ARGS(&control));
        controls[i]->Release();
        CAUUID pages{};
        EXPECT_EQ(control->GetPages(&pages), S_OK);
        EXPECT_EQ(pages.cElems, 5 + i);
        EXPECT_TRUE(std::count(pages.pElems, pages.pElems + pages.cElems, kGeneralPage));
        CoTaskMemFree(pages.pElems);
        ComPtr<IPerPropertyBrowsing> browsing;
        control.As(&browsing);
        CLSID page{};
        EXPECT_EQ(browsing->MapPropertyToPage(2 + static_cast<DISPID>(i), &page), S_OK);  // DateMax
        EXPECT_EQ(page, kGeneralPage);
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

}  // namespace
}  // namespace velmora
