#include "apps/vmhost/Snapshot.h"
#include "tests/activex/shell/ShellFixture.h"

namespace velmora {
namespace {

using vmhost::Canvas;

/// Share of the pixels of a rectangle that have the colour.
double Share(const vmhost::Picture& picture, const RECT& rect, std::uint32_t color) {
    int count = 0;
    for (int y = rect.top; y < rect.bottom; ++y) {
        for (int x = rect.left; x < rect.right; ++x) count += picture.At(x, y) == color;
    }
    return static_cast<double>(count) / ((rect.right - rect.left) * (rect.bottom - rect.top));
}

constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kBand = 0x1234AB;  // red, green, blue of the month band
constexpr ::OLE_COLOR kBandColor = 0xAB3412;

class View : public ShellFixture {
protected:
    View() {
        calendar = As<::_VmCalendar>();
        calendar->put_MonthBackColor(kBandColor);
        calendar->put_MonthAppearance(::VmAppearanceFlat);
    }
    HRESULT Draw(HDC context, RECTL bounds, const RECTL* window = nullptr) {
        return As<IViewObjectEx>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, context,
                                         &bounds, window, nullptr, 0);
    }
    /// The month band is at the top of the bounds over their whole width, nothing is outside.
    static void ExpectCalendarIn(const Canvas& canvas, const RECT& bounds) {
        const vmhost::Picture drawn = canvas.Read();
        const LONG width = bounds.right - bounds.left, height = bounds.bottom - bounds.top;
        const RECT band{bounds.left + width / 30, bounds.top + height / 60,
                        bounds.right - width / 30, bounds.top + height / 14};
        EXPECT_GT(Share(drawn, band, kBand), 0.4);
        const RECT grid{bounds.left, bounds.top + height / 2, bounds.right, bounds.bottom};
        EXPECT_EQ(Share(drawn, grid, kBand), 0);
        EXPECT_LT(Share(drawn, grid, kWhite), 0.9);
        EXPECT_EQ(Share(drawn, {0, 0, bounds.left, bounds.bottom}, kWhite), 1);
        EXPECT_EQ(Share(drawn, {bounds.right, 0, bounds.right + 10, bounds.bottom}, kWhite), 1);
        EXPECT_EQ(Share(drawn, {0, bounds.bottom, bounds.right, bounds.bottom + 10}, kWhite), 1);
    }

    /// A metafile takes the operations as they are, not a picture of them.
    static void ExpectNoPictureIn(HENHMETAFILE file) {
        int counts[2]{};  // texts and bitmaps
        EnumEnhMetaFile(
            nullptr, file,
            [](HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM to) {
                auto* const into = reinterpret_cast<int*>(to);
                if (record->iType == EMR_EXTTEXTOUTW) ++into[0];
                if (record->iType == EMR_BITBLT && record->nSize > 200) ++into[1];
                return 1;
            },
            counts, nullptr);
        EXPECT_GE(counts[0], 42 + 7 + 1);
        EXPECT_EQ(counts[1], 0);
    }

    ComPtr<::_VmCalendar> calendar;
};

TEST_F(View, DrawsAtAnyPlaceAndScaleWithoutAWindow) {
    for (const RECT bounds :
         {RECT{20, 10, 270, 210}, RECT{5, 5, 130, 105}, RECT{40, 20, 540, 420}}) {
        const Canvas canvas(600, 450);
        EXPECT_EQ(Draw(canvas.Context(), {bounds.left, bounds.top, bounds.right, bounds.bottom}),
                  S_OK);
        ExpectCalendarIn(canvas, bounds);
        POINT origin{};
        GetViewportOrgEx(canvas.Context(), &origin);
        EXPECT_EQ(origin.x, 0);
        EXPECT_EQ(GetMapMode(canvas.Context()), MM_TEXT);
    }
}

TEST_F(View, ACalendarHasItsSelectorsInThePictureActiveOrNot) {
    Place();
    calendar->put_MonthYearSelStyle(::VmMonthSelCombo);
    const auto drawn = [this] {
        const Canvas canvas(250, 200);
        EXPECT_EQ(Draw(canvas.Context(), {0, 0, 250, 200}), S_OK);
        return canvas.Read();
    };
    const vmhost::Picture inactive = drawn();
    EXPECT_LT(Share(inactive, {5, 2, 245, 22}, kBand), 0.7) << "the selectors cover the band";
    EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_EQ(drawn().pixels, inactive.pixels);
    EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(drawn().pixels, inactive.pixels);
}

TEST_F(View, DrawsInTheUnitsOfTheContext) {
    const Canvas canvas(600, 450);
    SetMapMode(canvas.Context(), MM_ANISOTROPIC);
    SetWindowExtEx(canvas.Context(), 1000, 1000, nullptr);
    SetViewportExtEx(canvas.Context(), 500, 500, nullptr);
    EXPECT_EQ(Draw(canvas.Context(), {40, 20, 540, 420}), S_OK);
    ExpectCalendarIn(canvas, {20, 10, 270, 210});
}

TEST_F(View, PlaysFromBothKindsOfMetafile) {
    const auto data = As<IDataObject>();
    const RECT bounds{20, 10, 270, 210};
    {
        FORMATETC format{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF};
        STGMEDIUM medium{};
        ASSERT_EQ(data->GetData(&format, &medium), S_OK);
        const Canvas canvas(400, 300);
        EXPECT_TRUE(PlayEnhMetaFile(canvas.Context(), medium.hEnhMetaFile, &bounds));
        ExpectCalendarIn(canvas, bounds);
        ExpectNoPictureIn(medium.hEnhMetaFile);
        ReleaseStgMedium(&medium);
    }
    FORMATETC format{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
    STGMEDIUM medium{};
    ASSERT_EQ(data->GetData(&format, &medium), S_OK);
    const auto* picture = static_cast<METAFILEPICT*>(GlobalLock(medium.hMetaFilePict));
    EXPECT_EQ(picture->xExt, 6615);
    const Canvas canvas(400, 300);
    SetMapMode(canvas.Context(), picture->mm);
    SetViewportOrgEx(canvas.Context(), bounds.left, bounds.top, nullptr);
    SetViewportExtEx(canvas.Context(), 250, 200, nullptr);
    EXPECT_TRUE(PlayMetaFile(canvas.Context(), picture->hMF));
    ExpectCalendarIn(canvas, bounds);
    GlobalUnlock(medium.hMetaFilePict);
    ReleaseStgMedium(&medium);
}

TEST_F(View, DrawsIntoAPartOfAContainersMetafile) {
    const RECTL window{100, 200, 800, 600};  // origin and extent
    const HDC context = CreateMetaFileW(nullptr);
    SetMapMode(context, MM_ANISOTROPIC);
    SetWindowOrgEx(context, window.left, window.top, nullptr);
    SetWindowExtEx(context, window.right, window.bottom, nullptr);
    EXPECT_EQ(Draw(context, {140, 220, 640, 620}, &window), S_OK);
    const HMETAFILE metafile = CloseMetaFile(context);
    const Canvas canvas(450, 350);
    SetMapMode(canvas.Context(), MM_ANISOTROPIC);
    SetViewportExtEx(canvas.Context(), 400, 300, nullptr);
    EXPECT_TRUE(PlayMetaFile(canvas.Context(), metafile));
    ExpectCalendarIn(canvas, {20, 10, 270, 210});
    DeleteMetaFile(metafile);
}

TEST_F(View, OffersABitmapAndRefusesTheRest) {
    const auto data = As<IDataObject>();
    FORMATETC format{CF_BITMAP, nullptr, DVASPECT_CONTENT, -1, TYMED_GDI};
    STGMEDIUM medium{};
    ASSERT_EQ(data->GetData(&format, &medium), S_OK);
    BITMAP bitmap{};
    GetObjectW(medium.hBitmap, sizeof bitmap, &bitmap);
    EXPECT_EQ(bitmap.bmWidth, 250);
    EXPECT_EQ(bitmap.bmHeight, 200);
    ReleaseStgMedium(&medium);
    format.tymed = TYMED_HGLOBAL;
    EXPECT_EQ(data->GetData(&format, &medium), DV_E_TYMED);
    format = {CF_TEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    EXPECT_EQ(data->GetData(&format, &medium), DV_E_FORMATETC);
    EXPECT_EQ(Draw(nullptr, {}), E_POINTER);
    const Canvas canvas(10, 10);
    EXPECT_EQ(Draw(canvas.Context(), {3, 3, 3, 9}), S_OK);  // nothing to draw in
}

TEST_F(View, TellsEveryChangeWhileItHasNoWindow) {
    const auto view = As<IViewObjectEx>();
    const Canvas canvas(300, 250);
    Draw(canvas.Context(), {0, 0, 250, 200});
    EXPECT_EQ(view->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, container.Get()), S_OK);
    EXPECT_EQ(container->TakeLog(), "OnViewChange");
    calendar->put_MonthBackColor(0);
    EXPECT_NE(container->TakeLog(), "");
    ComPtr<::_VmDays> days;
    ComPtr<::_VmDay> day;
    calendar->get_Days(&days);
    days->get_Item(5, &day);
    VARIANT color;
    V_VT(&color) = VT_I4;
    V_I4(&color) = 255;
    day->put_BackColor(color);
    EXPECT_EQ(container->TakeLog(), "OnViewChange");
    EXPECT_EQ(view->SetAdvise(DVASPECT_CONTENT, ADVF_ONLYONCE, container.Get()), S_OK);
    calendar->put_MonthBackColor(1);
    calendar->put_MonthBackColor(2);
    EXPECT_EQ(container->TakeLog(), "OnViewChange");
}

}  // namespace
}  // namespace velmora
