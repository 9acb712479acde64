#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <utility>

namespace velmora {
namespace {

constexpr char kReleased[] = "../../hosts/activex/server/Identifiers.txt";

std::string ContentOf(const char* path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

/// Names with their values.
std::set<std::string> ConstantsIn(const std::string& text) {
    const std::regex constant(R"(Vm\w+ = \d+)");
    return {std::sregex_token_iterator(text.begin(), text.end(), constant), {}};
}

/// One statement a line, without comments and help texts.
std::string Statements(std::string definition) {
    for (const auto& [pattern, text] :
         {std::pair(R"(//[^\n]*|#[^\n]*|,?\s*helpstring\(\s*"[^"]*"\))", ""),
          {R"(\s+)", " "},
          {R"( ?([;{}]) ?)", "$1\n"}}) {
        definition = std::regex_replace(definition, std::regex(pattern), text);
    }
    return definition;
}

TEST(TypeLibrary, NothingThatHasBeenReleasedMoves) {
    EXPECT_EQ(Statements(ContentOf(VELMORA_DEFINITION)), Statements(ContentOf(kReleased)))
        << "released, but changed; or new: append it to the record";
}

TEST(TypeLibrary, PublishesTheEnumerationsOfTheModel) {
    EXPECT_EQ(ConstantsIn(ContentOf(kReleased)),
              ConstantsIn(ContentOf("../../model/Enumerations.h")));
}

}  // namespace
}  // namespace velmora
