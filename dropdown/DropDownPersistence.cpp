#include "calendar/SavedProperties.h"
#include "dropdown/VmCalDropDown.h"

#include <array>
#include <type_traits>

namespace velmora {
namespace {

/// Limits are saved as day numbers.
template <const auto& kRow>
Variant InSavedForm(const BoxStorage& from) {
    using Row = std::remove_cvref_t<decltype(kRow)>;
    if constexpr (std::is_same_v<Row, LimitProperty>) {
        return DayOf(kRow.Get(from));
    } else {
        return ToSaved<typename Row::Value>(kRow.Get(from));
    }
}

template <const auto& kRow>
constexpr SavedProperty<BoxStorage> SavedAs() {
    using T = typename std::remove_cvref_t<decltype(kRow)>::Value;
    return {InBox(kRow).key, Saved::WhenChanged, InSavedForm<kRow>,
            [](const BoxStorage& defaults) {
                if constexpr (std::is_same_v<T, FontRef>) {
                    return ToVariant(CopyOf(kRow.Get(defaults)));
                } else {
                    return InSavedForm<kRow>(defaults);
                }
            },
            [](const BoxStorage& to, const Variant& value, const Dates& dates) {
                kRow.Store(to, FromSaved<T>(value, dates));
            }};
}

template <const auto&... kRow>
constexpr auto InOrder(Rows<kRow...>) {
    return std::array{SavedAs<kRow>()...};
}

constexpr auto kSaved = InOrder(BoxOrder());

/// The values of a new box.
struct Defaults {
    explicit Defaults(const Platform& platform) {
        state.dateMax = kBoxDateMax;
        state.dateMin = kBoxDateMin;
        state.dateValue = platform.dates.Now();
        box.comboFont = platform.hosting.AmbientFont();
        state.dayFont = state.monthFont = state.weekDayFont = box.comboFont;
    }
    BoxStorage Storage() { return {{state, days, window}, box}; }

    CalendarState state;
    VmDays days;
    StoredWindow window;
    BoxState box;
};

class EmptyBag final : public PropertyBag {
public:
    Variant ReadProperty(std::string_view, const Variant& fallback) override { return fallback; }
    void WriteProperty(std::string_view, const Variant&, const Variant&) override {}
};

}  // namespace

void VmCalDropDown::InitProperties() {
    EmptyBag bag;
    ReadProps(bag);
}

void VmCalDropDown::ReadProps(PropertyBag& bag) {
    Abandon();
    Defaults defaults(m_platform);
    ReadProperties<BoxStorage>(bag, kSaved, {m_store.Storage(), m_box}, defaults.Storage(),
                               m_platform.dates);
    m_store.Restored(defaults.state);
    ++m_dateChanges;
    OnWindowChanged();
    UpdateDateText(DateValue());
}

void VmCalDropDown::WriteProps(PropertyBag& bag) const {
    Defaults defaults(m_platform);
    CalendarState state = m_store.Values();
    BoxState box = m_box;
    WriteProperties<BoxStorage>(bag, kSaved, {{state, *m_store.Days(), m_platform.windowing}, box},
                                defaults.Storage());
}

}  // namespace velmora
