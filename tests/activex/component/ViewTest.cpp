#include "apps/vmhost/Snapshot.h"
#include "tests/activex/component/ComponentTest.h"

namespace velmora {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kBand = 0x1234AB;  // red, green, blue of the month band
constexpr ::OLE_COLOR kBandColor = 0xAB3412;
constexpr RECT kPlace{20, 10, 270, 210};  // the size that it has

/// Share of the pixels of a rectangle that have the colour.
double Share(const vmhost::Picture& picture, const RECT& rect, std::uint32_t color) {
    int count = 0;
    for (int y = rect.top; y < rect.bottom; ++y) {
        for (int x = rect.left; x < rect.right; ++x) count += picture.At(x, y) == color;
    }
    return static_cast<double>(count) / ((rect.right - rect.left) * (rect.bottom - rect.top));
}

class View : public ComponentTest {
protected:
    View() : calendar(As<::_VmCalendar>()) {
        calendar->put_MonthBackColor(kBandColor);
        calendar->put_MonthAppearance(::VmAppearanceFlat);
    }
    HRESULT Draw(HDC context, RECTL bounds, const RECTL* window = nullptr) {
        return As<IViewObjectEx>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, context,
                                         &bounds, window, nullptr, 0);
    }
    void DrawEnhanced(HDC context) {
        STGMEDIUM medium{};
        FORMATETC format{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF};
        ASSERT_EQ(As<IDataObject>()->GetData(&format, &medium), S_OK);
        EXPECT_TRUE(PlayEnhMetaFile(context, medium.hEnhMetaFile, &kPlace));
        ReleaseStgMedium(&medium);
    }
    /// As a container does that makes one metafile of all its parts.
    void DrawIntoMetafile(HDC context) {
        const RECTL window{100, 200, 800, 600};  // origin and extent
        const HDC metafile = CreateMetaFileW(nullptr);
        SetMapMode(metafile, MM_ANISOTROPIC);
        SetWindowOrgEx(metafile, window.left, window.top, nullptr);
        SetWindowExtEx(metafile, window.right, window.bottom, nullptr);
        EXPECT_EQ(Draw(metafile, {140, 220, 640, 620}, &window), S_OK);
        SetMapMode(context, MM_ANISOTROPIC);
        SetViewportExtEx(context, 400, 300, nullptr);
        const HMETAFILE file = CloseMetaFile(metafile);
        EXPECT_TRUE(PlayMetaFile(context, file));
        DeleteMetaFile(file);
    }

    const ComPtr<::_VmCalendar> calendar;
};

/// The month band is at the top of the place over its whole width, nothing is outside.
TEST_F(View, DrawsAtAnyPlaceAndScaleOnAnyDevice) {
    const auto direct = [&](const RECT& to) {
        return [&, to](HDC context) {
            EXPECT_EQ(Draw(context, {to.left, to.top, to.right, to.bottom}), S_OK);
        };
    };
    const auto inUnits = [&](HDC context) {
        SetMapMode(context, MM_ANISOTROPIC);
        SetWindowExtEx(context, 1000, 1000, nullptr);
        SetViewportExtEx(context, 500, 500, nullptr);
        EXPECT_EQ(Draw(context, {40, 20, 540, 420}), S_OK);
    };
    const std::tuple<const char*, RECT, std::function<void(HDC)>> cases[] = {
        {"as it is", kPlace, direct(kPlace)},
        {"smaller", {5, 5, 130, 105}, direct({5, 5, 130, 105})},
        {"in units", kPlace, inUnits},
        {"enhanced metafile", kPlace, [&](HDC to) { DrawEnhanced(to); }},
        {"part of a metafile", kPlace, [&](HDC to) { DrawIntoMetafile(to); }}};
    for (const auto& [how, place, draw] : cases) {
        SCOPED_TRACE(how);
        const vmhost::Picture drawn = vmhost::Drawn(600, 450, draw);
        const auto [left, top, right, bottom] = place;
        const LONG width = right - left, height = bottom - top;
        const RECT band{left + width / 30, top + height / 60, right - width / 30,
                        top + height / 14};
        EXPECT_GT(Share(drawn, band, kBand), 0.4);
        EXPECT_EQ(Share(drawn, {left, top + height / 2, right, bottom}, kBand), 0);
        for (const RECT& outside : {RECT{0, 0, left, bottom}, RECT{right, 0, right + 10, bottom}}) {
            EXPECT_EQ(Share(drawn, outside, kWhite), 1);
        }
    }
}

TEST_F(View, HasItsSelectorsInThePictureActiveOrNot) {
    Place();
    calendar->put_MonthYearSelStyle(::VmMonthSelCombo);
    const auto drawn = [&] {
        return vmhost::Drawn(250, 200, [&](HDC to) {
            EXPECT_EQ(Draw(to, {0, 0, 250, 200}), S_OK);
        });
    };
    const vmhost::Picture inactive = drawn();
    EXPECT_LT(Share(inactive, {5, 2, 245, 22}, kBand), 0.7) << "the selectors cover the band";
    EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_EQ(drawn().pixels, inactive.pixels);
    calendar->put_MonthYearSelStyle(::VmMonthSelNone);
    const vmhost::Picture printed = vmhost::Drawn(250, 200, [&](HDC to) {
        SendMessageW(Window(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(to), PRF_CLIENT);
    });
    EXPECT_EQ(printed.pixels, drawn().pixels);
}

TEST_F(View, TellsEveryChangeWhileItHasNoWindow) {
    const vmhost::Canvas canvas(300, 250);
    Draw(canvas.Context(), {0, 0, 250, 200});
    As<IViewObjectEx>()->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, container.Get());
    EXPECT_EQ(container->TakeLog(), "OnViewChange");
    calendar->put_MonthBackColor(0);
    EXPECT_NE(container->TakeLog(), "");
    const auto day = GetProperty(object.Get(), "SelectedDay").result;
    PutProperty(day.Object(), "BackColor", 255);
    EXPECT_EQ(container->TakeLog(), "OnViewChange");
    FORMATETC format{CF_BITMAP, nullptr, DVASPECT_CONTENT, -1, TYMED_GDI};
    DWORD connection = 0;
    EXPECT_EQ(As<IDataObject>()->DAdvise(&format, ADVF_NODATA, container.Get(), &connection), S_OK);
    PutProperty(day.Object(), "BackColor", 0);
    EXPECT_EQ(container->TakeLog(), "OnViewChange OnDataChange");
}

}  // namespace
}  // namespace velmora
