#include "hosts/activex/server/ServerClasses.h"

#include "hosts/activex/com/ComError.h"
#include "hosts/activex/com/ComObject.h"
#include "hosts/activex/control/CalendarControl.h"
#include "hosts/activex/control/DropDownControl.h"
#include "hosts/activex/pages/PropertyPageObject.h"

namespace velmora {
namespace {

template <class Control>
HRESULT Create(REFIID iid, void** object) {
    return Guard([=] { return Adopt<IOleObject>(new Control).CopyTo(iid, object); });
}

template <const CLSID& kPage>
HRESULT CreatePage(REFIID iid, void** object) {
    return CreatePropertyPage(kPage, iid, object);
}

const ServerClass kClasses[] = {
    {kCalendarClass.clsid, kCalendarClass.userType, &kCalendarClass, Create<CalendarControl>},
    {kDropDownClass.clsid, kDropDownClass.userType, &kDropDownClass, Create<DropDownControl>},
    {kGeneralPage, L"Velmora General Property Page", nullptr, CreatePage<kGeneralPage>},
    {kDayPage, L"Velmora Day Property Page", nullptr, CreatePage<kDayPage>},
    {kDropDownPage, L"Velmora Drop-Down Property Page", nullptr, CreatePage<kDropDownPage>},
    {kLookPage, L"Velmora Color and Font Property Page", nullptr, CreatePage<kLookPage>},
};

}  // namespace

std::span<const ServerClass> ServerClasses() noexcept { return kClasses; }

constexpr GUID kLibrary = {
    0x47eaa099, 0x2cb6, 0x416d, {0x86, 0xdc, 0x28, 0x3c, 0xf0, 0x48, 0x0f, 0xf9}};

}  // namespace velmora
