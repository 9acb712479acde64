#include "hosts/activex/control/ControlClass.h"

#include <VelmoraCalendarInterfaces.h>
#include <olectl.h>
#include <wrl/client.h>

namespace velmora {
namespace {

constexpr DWORD kStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                          OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST;

constexpr CLSID kStockFontPage = {
    0x7ebdaae0, 0x8120, 0x11cf, {0x89, 0x9f, 0x00, 0xaa, 0x00, 0x68, 0x8b, 0x10}};
constexpr CLSID kStockColorPage = {
    0x7ebdaae1, 0x8120, 0x11cf, {0x89, 0x9f, 0x00, 0xaa, 0x00, 0x68, 0x8b, 0x10}};
constexpr CLSID kStockPicturePage = {
    0x7ebdaae2, 0x8120, 0x11cf, {0x89, 0x9f, 0x00, 0xaa, 0x00, 0x68, 0x8b, 0x10}};

constexpr const CLSID* kCalendarPages[] = {&kGeneralPage, &kDayPage};
constexpr const CLSID* kDropDownPages[] = {&kGeneralPage, &kDayPage, &kDropDownPage};

bool CanBeMade(const CLSID& page) {
    Microsoft::WRL::ComPtr<IUnknown> made;
    return SUCCEEDED(CoCreateInstance(page, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&made)));
}

}  // namespace

constexpr CLSID kGeneralPage = {
    0x2e460a96, 0x1894, 0x4a23, {0x99, 0x85, 0x51, 0x62, 0xfd, 0x0b, 0x00, 0xea}};
constexpr CLSID kDayPage = {
    0x310a853e, 0xec9a, 0x42f2, {0x8e, 0xa9, 0x87, 0x7a, 0xf3, 0x76, 0xbc, 0x25}};
constexpr CLSID kDropDownPage = {
    0x64e752cc, 0x93a9, 0x48b6, {0x81, 0xf7, 0x2b, 0x0a, 0x43, 0xc2, 0x0f, 0x56}};
constexpr CLSID kLookPage = {
    0xcbe863aa, 0xa2bb, 0x4379, {0xbe, 0x2d, 0x38, 0xb2, 0xee, 0xe0, 0x9e, 0x63}};

std::vector<CLSID> PagesOf(const ControlClass& controlClass) {
    std::vector<CLSID> pages;
    for (const CLSID* const page : controlClass.pages) pages.push_back(*page);
    if (CanBeMade(kStockColorPage) && CanBeMade(kStockFontPage)) {
        pages.insert(pages.end(), {kStockColorPage, kStockFontPage});
    } else {
        pages.push_back(kLookPage);
    }
    if (CanBeMade(kStockPicturePage)) pages.push_back(kStockPicturePage);
    return pages;
}

const ControlClass kCalendarClass = {__uuidof(::VmCalendar),
                                     __uuidof(::_VmCalendar),
                                     __uuidof(::__VmCalendar),
                                     L"VelmoraCalendar.VmCalendar.1",
                                     L"VelmoraCalendar.VmCalendar",
                                     L"Velmora Month Calendar",
                                     kStatus,
                                     {250, 200},
                                     101,
                                     kCalendarPages};
const ControlClass kDropDownClass = {__uuidof(::VmCalDropDown),
                                     __uuidof(::_VmCalDropDown),
                                     __uuidof(::__VmCalDropDown),
                                     L"VelmoraCalendar.VmCalDropDown.1",
                                     L"VelmoraCalendar.VmCalDropDown",
                                     L"Velmora Date Box",
                                     kStatus,
                                     {121, 21},
                                     102,
                                     kDropDownPages};

}  // namespace velmora
