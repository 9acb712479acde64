#include "apps/vmhost/Snapshot.h"
#include "tests/activex/shell/ShellFixture.h"

namespace velmora {
namespace {

using vmhost::Canvas;

constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kBand = 0x1234AB;  // red, green, blue of the month band
constexpr ::OLE_COLOR kBandColor = 0xAB3412;
constexpr RECT kPlace{20, 10, 270, 210};  // the size that it has
constexpr RECTL kTwice{40, 20, 540, 420};

/// Share of the pixels of a rectangle that have the colour.
double Share(const vmhost::Picture& picture, const RECT& rect, std::uint32_t color) {
    int count = 0;
    for (int y = rect.top; y < rect.bottom; ++y) {
        for (int x = rect.left; x < rect.right; ++x) count += picture.At(x, y) == color;
    }
    return static_cast<double>(count) / ((rect.right - rect.left) * (rect.bottom - rect.top));
}

class View : public ShellFixture {
protected:
    View() : calendar(As<::_VmCalendar>()) {
        calendar->put_MonthBackColor(kBandColor);
        calendar->put_MonthAppearance(::VmAppearanceFlat);
    }
    HRESULT Draw(HDC context, RECTL bounds, const RECTL* window = nullptr) {
        return As<IViewObjectEx>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, context,
                                         &bounds, window, nullptr, 0);
    }
    HRESULT Get(CLIPFORMAT format, DWORD tymed, STGMEDIUM& medium) {
        FORMATETC etc{format, nullptr, DVASPECT_CONTENT, -1, tymed};
        return As<IDataObject>()->GetData(&etc, &medium);
    }
    void Play(HDC context, HMETAFILE file) {
        EXPECT_TRUE(PlayMetaFile(context, file));
        DeleteMetaFile(file);
    }
    void DrawEnhanced(HDC context);
    void DrawMetafilePicture(HDC context);
    void DrawIntoMetafile(HDC context);

    const ComPtr<::_VmCalendar> calendar;
};

/// A metafile takes the operations as they are, not a picture of them.
void View::DrawEnhanced(HDC context) {
    STGMEDIUM medium{};
    ASSERT_EQ(Get(CF_ENHMETAFILE, TYMED_ENHMF, medium), S_OK);
    EXPECT_TRUE(PlayEnhMetaFile(context, medium.hEnhMetaFile, &kPlace));
    int counts[2]{};  // texts and bitmaps
    const auto count = [](HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM to) {
        auto* const into = reinterpret_cast<int*>(to);
        if (record->iType == EMR_EXTTEXTOUTW) ++into[0];
        if (record->iType == EMR_BITBLT && record->nSize > 200) ++into[1];
        return 1;
    };
    EnumEnhMetaFile(nullptr, medium.hEnhMetaFile, count, counts, nullptr);
    EXPECT_GE(counts[0], 42 + 7 + 1);
    EXPECT_EQ(counts[1], 0);
    ReleaseStgMedium(&medium);
}

void View::DrawMetafilePicture(HDC context) {
    STGMEDIUM medium{};
    ASSERT_EQ(Get(CF_METAFILEPICT, TYMED_MFPICT, medium), S_OK);
    const auto* picture = static_cast<METAFILEPICT*>(GlobalLock(medium.hMetaFilePict));
    EXPECT_EQ(picture->xExt, 6615);
    SetMapMode(context, picture->mm);
    SetViewportOrgEx(context, kPlace.left, kPlace.top, nullptr);
    SetViewportExtEx(context, 250, 200, nullptr);
    Play(context, CopyMetaFileW(picture->hMF, nullptr));
    GlobalUnlock(medium.hMetaFilePict);
    ReleaseStgMedium(&medium);
}

/// As a container does that makes one metafile of all its parts.
void View::DrawIntoMetafile(HDC context) {
    const RECTL window{100, 200, 800, 600};  // origin and extent
    const HDC metafile = CreateMetaFileW(nullptr);
    SetMapMode(metafile, MM_ANISOTROPIC);
    SetWindowOrgEx(metafile, window.left, window.top, nullptr);
    SetWindowExtEx(metafile, window.right, window.bottom, nullptr);
    EXPECT_EQ(Draw(metafile, {140, 220, 640, 620}, &window), S_OK);
    SetMapMode(context, MM_ANISOTROPIC);
    SetViewportExtEx(context, 400, 300, nullptr);
    Play(context, CloseMetaFile(metafile));
}

/// The month band is at the top of the place over its whole width, nothing is outside.
TEST_F(View, DrawsAtAnyPlaceAndScaleOnAnyDevice) {
    const auto direct = [&](const RECT& to) {
        return [&, to](HDC context) {
            EXPECT_EQ(Draw(context, {to.left, to.top, to.right, to.bottom}), S_OK);
            POINT origin{};
            GetViewportOrgEx(context, &origin);
            EXPECT_EQ(origin.x, 0);
            EXPECT_EQ(GetMapMode(context), MM_TEXT);
        };
    };
    const auto inUnits = [&](HDC context) {
        SetMapMode(context, MM_ANISOTROPIC);
        SetWindowExtEx(context, 1000, 1000, nullptr);
        SetViewportExtEx(context, 500, 500, nullptr);
        EXPECT_EQ(Draw(context, kTwice), S_OK);
    };
    const struct {
        const char* how;
        RECT place;
        std::function<void(HDC)> draw;
    } cases[] = {{"as it is", kPlace, direct(kPlace)},
                 {"smaller", {5, 5, 130, 105}, direct({5, 5, 130, 105})},
                 {"larger", {40, 20, 540, 420}, direct({40, 20, 540, 420})},
                 {"in units", kPlace, inUnits},
                 {"enhanced metafile", kPlace, [&](HDC to) { DrawEnhanced(to); }},
                 {"metafile", kPlace, [&](HDC to) { DrawMetafilePicture(to); }},
                 {"part of a metafile", kPlace, [&](HDC to) { DrawIntoMetafile(to); }}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.how);
        const vmhost::Picture drawn = vmhost::Drawn(600, 450, c.draw);
        const auto [left, top, right, bottom] = c.place;
        const LONG width = right - left, height = bottom - top;
        const RECT band{left + width / 30, top + height / 60, right - width / 30,
                        top + height / 14};
        EXPECT_GT(Share(drawn, band, kBand), 0.4);
        EXPECT_EQ(Share(drawn, {left, top + height / 2, right, bottom}, kBand), 0);
        EXPECT_LT(Share(drawn, {left, top + height / 2, right, bottom}, kWhite), 0.9);
        for (const RECT& outside : {RECT{0, 0, left, bottom}, RECT{right, 0, right + 10, bottom},
                                    RECT{0, bottom, right, bottom + 10}}) {
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
    STGMEDIUM medium{};
    ASSERT_EQ(Get(CF_BITMAP, TYMED_GDI, medium), S_OK);
    const vmhost::Picture offered = vmhost::Drawn(250, 200, [&](HDC to) {
        DrawStateW(to, nullptr, nullptr, reinterpret_cast<LPARAM>(medium.hBitmap), 0, 0, 0, 250,
                   200, DST_BITMAP);
    });
    EXPECT_EQ(offered.pixels, printed.pixels);
    ReleaseStgMedium(&medium);
}

TEST_F(View, RefusesWhatItDoesNotOffer) {
    STGMEDIUM medium{};
    EXPECT_EQ(Get(CF_BITMAP, TYMED_HGLOBAL, medium), DV_E_TYMED);
    EXPECT_EQ(Get(CF_TEXT, TYMED_HGLOBAL, medium), DV_E_FORMATETC);
    EXPECT_EQ(Draw(nullptr, {}), E_POINTER);
    const Canvas canvas(10, 10);
    EXPECT_EQ(Draw(canvas.Context(), {3, 3, 3, 9}), S_OK);  // nothing to draw in
    for (const auto& [x, hit] : {std::pair(269, HITRESULT_HIT), {270, HITRESULT_OUTSIDE}}) {
        DWORD result = 77;
        const RECT beside{x, 0, x + 9, 99};
        const auto view = As<IViewObjectEx>();
        EXPECT_EQ(view->QueryHitPoint(DVASPECT_CONTENT, &kPlace, {x, 10}, 0, &result), S_OK);
        EXPECT_EQ(result, static_cast<DWORD>(hit));
        EXPECT_EQ(view->QueryHitRect(DVASPECT_CONTENT, &kPlace, &beside, 0, &result), S_OK);
        EXPECT_EQ(result, static_cast<DWORD>(hit));
    }
}

TEST_F(View, TellsEveryChangeWhileItHasNoWindow) {
    const auto view = As<IViewObjectEx>();
    const Canvas canvas(300, 250);
    Draw(canvas.Context(), {0, 0, 250, 200});
    const auto follow = [&](DWORD flags) {
        EXPECT_EQ(view->SetAdvise(DVASPECT_CONTENT, flags, container.Get()), S_OK);
    };
    follow(ADVF_PRIMEFIRST);
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
    follow(ADVF_ONLYONCE);
    calendar->put_MonthBackColor(1);
    calendar->put_MonthBackColor(2);
    EXPECT_EQ(container->TakeLog(), "OnViewChange");
    FORMATETC format{CF_BITMAP, nullptr, DVASPECT_CONTENT, -1, TYMED_GDI};
    DWORD connection = 0;
    EXPECT_EQ(As<IDataObject>()->DAdvise(&format, ADVF_NODATA, container.Get(), &connection), S_OK);
    day->put_BackColor(VARIANT{});
    EXPECT_EQ(container->TakeLog(), "OnDataChange");
}

}  // namespace
}  // namespace velmora
