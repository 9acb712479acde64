#include "hosts/activex/com/ComError.h"

#include "hosts/activex/win32/WinText.h"

#include <oleauto.h>
#include <wrl/client.h>

#include <exception>
#include <new>

namespace velmora {

using Microsoft::WRL::ComPtr;

ComFailure::ComFailure(HRESULT failure, const char* description)
    : TextError(description), m_failure(failure) {}

HRESULT Refuse(HRESULT failure, std::string_view description) {
    ComPtr<ICreateErrorInfo> creator;
    ComPtr<IErrorInfo> info;
    if (SUCCEEDED(CreateErrorInfo(&creator)) && SUCCEEDED(creator.As(&info))) {
        std::wstring text = ToWide(description);
        wchar_t source[] = L"VelmoraCalendar";
        creator->SetSource(source);
        creator->SetDescription(text.data());
        SetErrorInfo(0, info.Get());
    }
    return failure;
}

HRESULT RefusalOfException() noexcept {
    try {
        try {
            throw;
        } catch (const AutomationError& error) {
            return Refuse(HresultOf(error.Number()), error.what());
        } catch (const ComFailure& error) {
            return Refuse(error.Failure(), error.what());
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        } catch (const std::exception& error) {
            return Refuse(E_FAIL, error.what());
        }
    } catch (...) {
        return E_UNEXPECTED;
    }
}

}  // namespace velmora
