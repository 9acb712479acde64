#include "fuzz/FuzzValues.h"
#include "tests/support/TestBoxes.h"

namespace velmora::fuzz {
namespace {

using test::TestBoxes;

/// Two boxes, the window that they share, and handlers that do something themselves.
class Player {
public:
    explicit Player(ByteReader& bytes) : m_bytes(bytes) {
        for (TestBoxes::Box* const box : {&m_boxes.a, &m_boxes.b}) {
            DropDownEvents& events = box->control->Events();
            events.CloseUp.Connect([this] { Answer(); });
            events.DropDown.Connect([this](bool& cancel) {
                cancel = m_bytes.Take<std::uint8_t>() % 8 == 1;
                Answer();
            });
            events.DateChanged.Connect([this](Date&) { Answer(); });
            events.MonthChanged.Connect([this](std::int16_t&) { Answer(); });
        }
    }

    void DoDeed() {
        const auto deed = m_bytes.Take<std::uint8_t>();
        TestBoxes::Box& box = deed >= 128 ? m_boxes.a : m_boxes.b;
        VmCalDropDown& control = *box.control;
        switch (deed % 16) {
            case 0:
            case 1: Set(control, m_bytes); break;
            case 2:
            case 3: {
                constexpr int kKeys[] = {9, 13, 18, 27, 32, 33, 34, 35, 36, 37, 38, 39, 40, 115};
                m_boxes.Key(box, kKeys[m_bytes.Take<std::uint8_t>() % std::size(kKeys)],
                            deed / 16 % 8);
                break;
            }
            case 4: Click(control, {150, 22}); break;
            case 5: Click(m_boxes.form->Calendar(), {260, 210}); break;
            case 6: control.OnGotFocus(); break;
            case 7: control.OnLostFocus(); break;
            case 8: control.DropDownState(deed / 16 % 2 == 0); break;
            case 9: box.window->enabled = !box.window->enabled; [[fallthrough]];
            case 10: control.OnWindowChanged(); break;
            case 11:
                m_boxes.PointAt({m_bytes.Take<std::int8_t>() * 4, m_bytes.Take<std::int8_t>() * 4});
                break;
            case 12:
                Set(control, m_bytes);
                control.DateValue(Date(m_bytes.Take<std::uint16_t>() + 0.75));
                break;
            case 13: Reload(control); break;
            case 14: Decorate(*control.SelectedDay(), m_bytes); break;
            default: Paint(); break;
        }
    }

    void Check() {
        if (const std::string broken = m_boxes.BrokenInvariant(); !broken.empty()) Fail(broken);
    }

    void Paint() {
        const auto surface = test::StrictDrawing::kWindowSurface;
        const Rect all{0, 0, 250, 200};
        m_boxes.a.control->OnPaint(surface);
        m_boxes.form->OnPaint(surface, {&all, 1});
        if (m_depth > 0) return;  // an outer paint has objects of its own
        if (const auto& faults = m_boxes.drawing.FaultsAfterPaint(); !faults.empty()) {
            Fail(faults.front());
        }
        m_boxes.drawing.Forget();
    }

private:
    /// What a handler does; handlers of that do less.
    void Answer() {
        constexpr int kDeepest = 2;
        if (m_depth >= kDeepest || m_bytes.Take<std::uint8_t>() % 4 != 1) return;
        ++m_depth;
        DoDeed();
        --m_depth;
    }

    template <class Control>
    void Click(Control& control, Size size) {
        const int across = m_bytes.Take<std::uint8_t>() * size.width / 255;
        const int down = m_bytes.Take<std::uint8_t>() * size.height / 255;
        const auto x = static_cast<float>(across);
        const auto y = static_cast<float>(down);
        const auto how = m_bytes.Take<std::uint8_t>();
        if (how % 4 != 1) control.OnMouseDown(1, 0, x, y);
        control.OnMouseMove(how % 2, 0, x, y + static_cast<float>(how % 16));
        if (how % 4 != 2) control.OnMouseUp(1, 0, x, y);
    }

    void Reload(VmCalDropDown& control) {
        MemoryBag bag;
        control.WriteProps(bag);
        bag.WriteProperty(TakeName(m_bytes), TakeValue(m_bytes), Variant());
        control.ReadProps(bag);
    }

    ByteReader& m_bytes;
    TestBoxes m_boxes;
    int m_depth = 0;
};

}  // namespace
}  // namespace velmora::fuzz

/// Two date boxes with properties, keys, mouse, focus and handlers that do the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora::fuzz;
    constexpr int kMostDeeds = 64;
    ByteReader bytes(data, size);
    Player player(bytes);
    for (int i = 0; i < kMostDeeds && !bytes.AtEnd(); ++i) {
        player.DoDeed();
        player.Check();
    }
    player.Paint();
    return 0;
}
