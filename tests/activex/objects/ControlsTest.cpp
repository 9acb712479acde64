#include "ObjectsTest.h"
#include "hosts/activex/com/ComDataObject.h"
#include "hosts/activex/control/ControlClass.h"

namespace velmora {
namespace {

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

TEST(Controls, NameTheirPages) {
    for (const auto& [control, count] :
         {std::pair{Query<ISpecifyPropertyPages>(NewCalendar().Get()), 5u},
          {Query<ISpecifyPropertyPages>(NewBox().Get()), 6u}}) {
        CAUUID pages{};
        EXPECT_EQ(control->GetPages(&pages), S_OK);
        EXPECT_EQ(pages.cElems, count);
        EXPECT_TRUE(std::count(pages.pElems, pages.pElems + pages.cElems, kGeneralPage));
        CoTaskMemFree(pages.pElems);
    }
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
        EXPECT_EQ(day->put_Picture(nullptr), S_OK);
        EXPECT_EQ(changes, (std::vector<std::string>{"1 44988 BackColor", "1 44988 Picture"}));
        VARIANT_BOOL dirty = VARIANT_FALSE;
        day->get_Dirty(&dirty);
        EXPECT_EQ(dirty, VARIANT_TRUE);
    }
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
