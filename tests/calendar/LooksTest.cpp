#include "tests/support/Looks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace velmora::test {
namespace {

std::vector<std::string> LinesOf(const std::string& path) {
    std::ifstream file(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
}

void Write(const std::string& path, const std::vector<std::string>& lines) {
    std::ofstream file(path);
    for (const std::string& line : lines) file << line << '\n';
    ASSERT_TRUE(file.good()) << path;
}

/// What is drawn, call by call, is what it was.
template <class Look>
void ExpectReference(const Look& look) {
    StrictDrawing drawing;
    const auto children = Paint(look, drawing, [](const Rect&, const auto& paint) {
        paint(StrictDrawing::kWindowSurface);
    });
    EXPECT_EQ(drawing.FaultsAfterPaint(), std::vector<std::string>{}) << look.name;
    std::vector<std::string> lines = drawing.Described();
    lines.insert(lines.end(), children.begin(), children.end());
    const Reference reference = ReferenceOf(look.name, "calendar", ".txt");
    if (RenewsLooks()) return Write(reference.kept, lines);
    const std::vector<std::string> wanted = LinesOf(reference.kept);
    ASSERT_FALSE(wanted.empty()) << reference.kept << " is missing";
    if (lines == wanted) return;
    Write(reference.actual, lines);
    const auto [is, was] = std::mismatch(lines.begin(), lines.end(), wanted.begin(), wanted.end());
    ADD_FAILURE() << reference.actual << ':' << is - lines.begin() + 1 << "\n  is  "
                  << (is == lines.end() ? "the end" : *is) << "\n  was "
                  << (was == wanted.end() ? "the end" : *was);
}

TEST(Looks, AreDrawnAsTheirReferencesSay) {
    for (const Look& look : Looks()) ExpectReference(look);
    for (const BoxLook& look : BoxLooks()) ExpectReference(look);
}

}  // namespace
}  // namespace velmora::test
