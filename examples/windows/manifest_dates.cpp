// A console program with plain COM. Nothing is registered: its own manifest names the component's,
// and both files lie beside it.
#include <VelmoraCalendarInterfaces.h>
#include <wrl/client.h>

#include <iostream>

namespace {

using Microsoft::WRL::ComPtr;

int ShowDays() {
    ComPtr<_VmCalendar> calendar;
    const HRESULT made =
        CoCreateInstance(__uuidof(VmCalendar), nullptr, CLSCTX_INPROC_SERVER, __uuidof(_VmCalendar),
                         reinterpret_cast<void**>(calendar.GetAddressOf()));
    if (FAILED(made)) {
        std::cout << "no component: " << std::hex << made << '\n';
        return 1;
    }
    VARIANT date;
    V_VT(&date) = VT_DATE;
    V_DATE(&date) = 45332;  // 2024-02-10
    calendar->put_DateValue(date);

    ComPtr<_VmDays> days;
    long count = 0;
    if (FAILED(calendar->get_Days(days.GetAddressOf())) || FAILED(days->get_Count(&count)))
        return 1;
    std::cout << count << " days\n";

    const HRESULT refused = calendar->put_MonthBackColor(0x01000000);
    std::cout << "refused with error " << HRESULT_CODE(refused) << '\n';
    return 0;
}

}  // namespace

int main() {
    if (FAILED(CoInitialize(nullptr))) return 1;
    const int result = ShowDays();
    CoUninitialize();
    return result;
}
