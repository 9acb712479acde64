#include "tests/support/Looks.h"

#include <cstdlib>
#include <filesystem>

namespace velmora::test {

PictureRef PatternPicture(PictureType type, Size size) {
    auto image = std::make_shared<PixelImage>();
    image->width = size.width;
    image->height = size.height;
    for (int y = 0; y < size.height; ++y) {
        for (int x = 0; x < size.width; ++x) {
            const bool side = x == 0 || y == 0 || x == size.width - 1 || y == size.height - 1;
            const std::uint32_t mixed =
                0xFF4000A0u + static_cast<std::uint32_t>(x * 5 << 16 | y * 5 << 8);
            image->pixels.push_back(side ? 0xFFD02010u : x > y ? mixed : x == y ? 0x80FFFFFFu : 0u);
        }
    }
    const auto himetric = [](int pixels) { return (pixels * 2540 + 48) / 96; };
    return std::make_shared<StdPicture>(type, Size{himetric(size.width), himetric(size.height)},
                                        image);
}

ObjectRef DecoratedFont(double points) {
    auto font = std::make_shared<StdFont>();
    font->name = "DejaVu Sans";
    font->size = points;
    font->bold = font->underline = true;
    return font;
}

namespace {

void Decorate(const VmDays& days) {
    days.Item(8)->Picture(PatternPicture(PictureType::Bitmap, {9, 7}));
    days.Item(9)->Picture(PatternPicture(PictureType::Bitmap, {60, 50}));
    days.Item(10)->Picture(PatternPicture(PictureType::Icon, {16, 16}));
    days.Item(11)->Caption("R&B\t1");
    days.Item(12)->Caption("a caption that is too long for its cell");
    days.Item(13)->ForeColor(0x0000FF);
    days.Item(13)->BackColor(0x80FFFF);
    days.Item(13)->Caption("own");
    for (const std::int16_t special : {std::int16_t{15}, std::int16_t{20}}) {
        days.Item(special)->BackColor(0x00FF00);
    }
}

Rect PartOf(const Look& look, const CalendarLayout& layout) {
    if (look.sweep.empty()) return layout.Client();
    if (look.sweep.starts_with("WeekDay")) return layout.WeekDayRow();
    const int top = layout.gridTop + 1 + 2 * layout.rowHeight;  // the decorated week
    return {1, top, layout.client.width - 1, top + layout.rowHeight};
}

}  // namespace

std::vector<std::string> Paint(const Look& look, Drawing& drawing, const Canvas& canvas) {
    TestCalendar test(look.size, &drawing);
    VmCalendar& calendar = *test.calendar;
    calendar.DateValue("3/20/2020");
    for (const auto& [name, value] : look.values) calendar.LetMember(name, value);
    Decorate(*calendar.Days());
    if (look.input) look.input(test);
    for (std::int32_t value = 0; value <= look.last; ++value) {
        if (!look.sweep.empty()) calendar.LetMember(look.sweep, value);
        const Rect part = PartOf(look, calendar.Layout());
        canvas(part, [&](SurfaceHandle surface) { calendar.OnPaint(surface, {&part, 1}); });
    }
    std::vector<std::string> children;
    for (const FakeChild* child :
         {&test.monthList, &test.yearText, &test.yearSpinner, &test.dateScroll}) {
        const auto [left, top, right, bottom] = child->rect;
        if (!child->visible) continue;
        children.push_back("child " + std::to_string(left) + ',' + std::to_string(top) + ' ' +
                           std::to_string(right) + ',' + std::to_string(bottom));
    }
    return children;
}

std::vector<std::string> Paint(const BoxLook& look, Drawing& drawing, const Canvas& canvas) {
    TestBoxes test(&drawing);
    test.a.window->screen = {0, 0, look.size.width, look.size.height};
    look.input(test);
    canvas({0, 0, look.size.width, look.size.height},
           [&](SurfaceHandle surface) { test.a.control->OnPaint(surface); });
    return {};
}

Reference ReferenceOf(const std::string& name, const std::string& folder,
                      const std::string& ending) {
    const std::string kept = VELMORA_TESTS_FOLDER "/" + folder + "/looks/";
    const std::string actual = VELMORA_TESTS_OUTPUT "/" + folder + "/looks/";
    std::filesystem::create_directories(RenewsLooks() ? kept : actual);
    return {kept + name + ending, actual + name + ending, actual + name + ".difference" + ending};
}

bool RenewsLooks() { return std::getenv("VELMORA_RENEW_LOOKS") != nullptr; }

}  // namespace velmora::test
