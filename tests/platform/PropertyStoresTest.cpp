#include "platform/stores/TextFileBag.h"
#include "tests/support/StoreCases.h"

#include "platform/Automation.h"
#include "platform/AutomationError.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

#ifdef __unix__
#include <sys/resource.h>
#include <csignal>
#endif

namespace velmora::test {
namespace {

namespace fs = std::filesystem;

class Folder {
public:
    Folder()
        : path(fs::path(testing::TempDir()) /
               (std::string("velmora-stores-") +
                testing::UnitTest::GetInstance()->current_test_info()->name())) {
        fs::remove_all(path);
        fs::create_directories(path);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { fs::remove_all(path); }

    std::ptrdiff_t Entries() const {
        return std::distance(fs::directory_iterator(path), fs::directory_iterator());
    }

    const fs::path path;
};

void WriteFile(const fs::path& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

std::string ContentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

PropertyFileError ErrorOf(const std::function<void()>& operation) {
    try {
        operation();
    } catch (const PropertyFileError& error) {
        return error;
    }
    throw std::logic_error("nothing was refused");
}

FileProblem ProblemOf(const std::function<void()>& operation) {
    return ErrorOf(operation).Problem();
}

const std::string kHead = "velmora-properties 1\n";

TEST(MemoryBag, LeavesOutWhatEqualsItsDefault) {
    const ObjectRef font = std::make_shared<StdFont>(), other = std::make_shared<StdFont>();
    const Variant defaults[] = {43905, 1, 1, true, 5, Variant(), "a", font};
    const Variant leftOut[] = {Date(43905), std::int16_t{1}, 1.0, true, 5, "no", "a", font};
    const Variant kept[] = {Date(43905.5), "1", true, 1, "5", 0, "A", other};
    for (std::size_t i = 0; i < std::size(kept); ++i) {
        MemoryBag bag;
        bag.WriteProperty("Kept", kept[i], defaults[i]);
        if (defaults[i] != Variant()) bag.WriteProperty("Left out", leftOut[i], defaults[i]);
        EXPECT_EQ(bag.Count(), 1u) << Described(kept[i]) << " / " << Described(leftOut[i]);
    }
}

TEST(MemoryBag, RepeatedNamesKeepTheirPlaceAndObjectsAreCopies) {
    struct Foreign : Object {};
    MemoryBag bag;
    const auto font = std::make_shared<StdFont>();
    for (const char* name : {"First", "Gone"}) bag.WriteProperty(name, 1.0, Variant());
    bag.WriteProperty("Font", ObjectRef(font), Variant());
    font->size = 30;
    bag.WriteProperty("First", std::int32_t{7}, std::int32_t{8});
    bag.WriteProperty("Gone", true, true);
    EXPECT_THROW(bag.WriteProperty("Font", ObjectRef(std::make_shared<Foreign>()), Variant()),
                 AutomationError);
    EXPECT_EQ(FormatProperties(bag),
              kHead + "First = int32 7\nFont = font \"Sans Serif\" 9\nend\n");
    EXPECT_NE(bag.ReadProperty("Font", Variant()), bag.ReadProperty("Font", Variant()));
}

TEST(PropertiesText, EveryValueComesBackUnderEveryName) {
    MemoryBag bag;
    int number = 0;
    for (const Variant& value : AwkwardValues()) {
        bag.WriteProperty("Plain" + std::to_string(number++), value, Variant());
    }
    for (const char* name : {"", "end", "a = b", "#", "\"", "line\nend", "\xC3\xBC", "\\"}) {
        bag.WriteProperty(name, name, Variant());
    }
    const std::string content = FormatProperties(bag);
    MemoryBag copy = ParseProperties(content);
    EXPECT_EQ(FormatProperties(copy), content);
    ASSERT_EQ(copy.Values().size(), bag.Values().size());
    for (const auto& [name, value] : bag.Values()) {
        EXPECT_EQ(Described(copy.ReadProperty(name, 77.0)), Described(value)) << name;
    }
}

/// Both ways: what is written is compared with what values of every type come back as.
TEST(PropertiesText, LooksAsDocumented) {
    const std::string documented = kHead + R"(Small = int16 -3
Color = int32 -2147483643
Day = date 43905.25
Sum = double 0.30000000000000004
Huge = double 1e+15
Caption = text "Tom's \"day\"\n"
Font = font "Sans Serif" 9 bold underline
Icon = picture icon 53 26 pixels 2 1 ESIz/wAAAIA=
end
)";
    MemoryBag bag = ParseProperties(documented);
    EXPECT_EQ(FormatProperties(bag), documented);
    EXPECT_EQ(bag.ReadProperty("Color", Variant()), Variant(std::uint32_t{0x80000005}));
    const auto font = ToObject<StdFont>(bag.ReadProperty("Font", Variant()));
    EXPECT_TRUE(font->bold && font->underline && !font->italic && !font->strikethrough);
    const auto icon = ToObject<StdPicture>(bag.ReadProperty("Icon", Variant()));
    EXPECT_EQ(icon->Image()->pixels, (std::vector<std::uint32_t>{0xFF112233, 0x80000000}));
}

TEST(PropertiesText, ReadsWhatEditorsMakeOfIt) {
    EXPECT_EQ(FormatProperties(ParseProperties(
                  "\xEF\xBB\xBFvelmora-properties 1\r\n\r\n  # a remark\r\n\tA =int32  1 \r\n"
                  "\"B\"= text \"x\"\r\nA = int32 2\r\nend\r\n\r\n")),
              kHead + "A = int32 2\nB = text \"x\"\nend\n");
}

std::string ManyProperties(std::size_t count) {
    std::string lines;
    for (std::size_t i = 0; i < count; ++i) lines += std::to_string(i) + " = null\n";
    return lines;
}

TEST(PropertiesText, DamageIsReportedByLineAndReason) {
    std::vector<std::tuple<std::string, std::size_t, std::string>> cases{
        {"", 1, "no file of saved properties"},
        {"velmora-properties 2\nend\n", 1, "newer version"},
        {kHead + "A = int32 1\n", 2, "cut off"},
        {kHead + "A = int32 1\ne", 3, "\"=\" is missing"},
        {kHead + "end\nA = int32 1\n", 3, "behind the end"},
        {kHead + "\nA int32 1\nend\n", 3, "\"=\" is missing"},
        {kHead + "= int32 1\nend\n", 2, "begins with its name"},
        {kHead + "\"A = int32 1\nend\n", 2, "closing quote"},
        {kHead + ManyProperties(kMostFileProperties + 1) + "end\n", kMostFileProperties + 2,
         "too many"}};
    std::istringstream values(R"(-> value is missing; colour 1 -> unknown type "colour";
int32 -> number is missing; int32 1x -> "1x" is no number; int32 2147483648 -> out of range;
double +1 -> "+1" is no number; double 1,5 -> "1,5" is no number; double 1e -> "1e" is no number;
boolean 1 -> neither true nor false; text plain -> text in quotes is missing;
text "open\" -> closing quote; text "\q" -> unknown escape "q"; text "\x4" -> two hexadecimal digits;
text "a" b -> "b" stands behind the value; font "F" -> font size is missing;
font "F" 9 heavy -> unknown font style "heavy"; picture photo 1 1 -> unknown picture type;
picture icon 1 -> picture's height is missing;
picture icon 1 1 bytes -> stands where pixels may stand; picture icon 1 1 pixels 0 5 AAAA -> no area;
picture icon 1 1 pixels 2147483647 2147483647 A -> 64 MiB;
picture icon 1 1 pixels 1 1 AAAAAAAA -> do not fill;
picture icon 1 1 pixels 1 1 AA*AAA== -> do not fill)");
    for (std::string row; std::getline(values >> std::ws, row, ';');) {
        const std::size_t arrow = row.find("->");
        const std::string value = row.substr(0, arrow);
        cases.emplace_back(kHead + "A = " + value + "\nend\n", 2, row.substr(arrow + 3));
    }
    for (const auto& [content, line, reason] : cases) {
        SCOPED_TRACE(content.substr(0, 80));
        const PropertyFileError error = ErrorOf([&, &text = content] { ParseProperties(text); });
        EXPECT_EQ(error.Problem(), FileProblem::Damaged);
        EXPECT_EQ(error.Line(), line) << error.what();
        EXPECT_NE(std::string(error.what()).find(reason), std::string::npos)
            << error.what() << "\nwhere it should say: " << reason;
    }
}

TEST(PropertiesText, WhatCouldNotBeReadAgainIsNotWritten) {
    MemoryBag huge;
    huge.WriteProperty("Huge", std::string(kLargestPropertyFile, 'a'), Variant());
    EXPECT_EQ(ProblemOf([&] { FormatProperties(huge); }), FileProblem::NotSaved);
    MemoryBag bag = ParseProperties(kHead + ManyProperties(kMostFileProperties) + "end\n");
    bag.WriteProperty("One more", Null{}, Variant());
    EXPECT_EQ(ProblemOf([&] { FormatProperties(bag); }), FileProblem::NotSaved);
}

TEST(TextFileBag, LoadsWhatAnotherHasSavedAndKeepsItsValuesElse) {
    const Folder folder;
    const fs::path path = folder.path / "Gr\xC3\xBC\xC3\x9F\x65.txt";
    TextFileBag saved(path), bag(path);
    for (const char* name : {"A", "B"}) {
        saved.WriteProperty(name, name, Variant());
        saved.Save();
    }
    bag.Load();
    EXPECT_EQ(bag.ReadProperty("A", Variant()), Variant("A"));
    EXPECT_EQ(bag.ReadProperty("B", Variant()), Variant("B"));
    EXPECT_EQ(folder.Entries(), 1);
    WriteFile(path, kHead + "A = int32 1\nB = int32\nend\n");
    const PropertyFileError error = ErrorOf([&] { bag.Load(); });
    EXPECT_NE(std::string(error.what()).find(".txt, line 3: "), std::string::npos);
    EXPECT_EQ(bag.ReadProperty("A", Variant()), Variant("A"));
    for (const auto& [name, problem] : {std::pair("missing", FileProblem::Missing),
                                        {"missing folder/file", FileProblem::Missing},
                                        {".", FileProblem::NotReadable}}) {
        EXPECT_EQ(ProblemOf([&, n = name] { TextFileBag(folder.path / n).Load(); }), problem);
    }
}

#ifdef __unix__
constexpr auto kOwnerOnly = fs::perms::owner_read | fs::perms::owner_write;

TEST(TextFileBag, SavesOverFilesAndThroughLinksAndNamesWhatItRefuses) {
    const Folder folder;
    const fs::path& at = folder.path;
    fs::create_directories(at / "folder" / "inner");
    for (const char* name : {"private", "read-only"}) WriteFile(at / name, "old");
    fs::permissions(at / "private", kOwnerOnly);
    fs::permissions(at / "read-only", fs::perms::owner_read);
    const std::pair<const char*, const char*> links[] = {{"private", "link"},
                                                         {"link", "link to a link"},
                                                         {"read-only", "link to read-only"},
                                                         {"nowhere at all", "nowhere"},
                                                         {"circle", "circle"}};
    for (const auto& [target, name] : links) fs::create_symlink(target, at / name);
    const std::string longName(250, 'n');  // valid, unlike that of a temporary file beside it
    const std::pair<std::string, const char*> cases[] = {
        {"private", nullptr},
        {"link", nullptr},
        {"link to a link", nullptr},
        {"folder", "no regular file"},
        {"missing/file", "No such file or directory"},
        {"private/file", "Not a directory"},
        {"read-only", "read-only"},
        {"link to read-only", "read-only"},
        {"nowhere", "leads nowhere"},
        {"circle", "symbolic links"},
        {longName, "name too long"},
        {"/dev/full", "no regular file"},
    };
    const std::ptrdiff_t entries = folder.Entries();
    for (const auto& [name, reason] : cases) {
        SCOPED_TRACE(name);
        WriteFile(at / "private", "old");
        const TextFileBag bag(at / name);
        if (!reason) {
            bag.Save();
            EXPECT_EQ(ContentOf(at / "private"), kHead + "end\n");
            EXPECT_EQ(fs::status(at / "private").permissions(), kOwnerOnly);
        } else {
            const PropertyFileError error = ErrorOf([&] { bag.Save(); });
            const std::string text = error.what();
            EXPECT_EQ(error.Problem(), FileProblem::NotSaved);
            EXPECT_TRUE(text.starts_with((at / name).string() + ": ")) << text;
            EXPECT_NE(text.find(reason), std::string::npos) << text;
            EXPECT_EQ(text.find(".tmp"), std::string::npos) << text;
        }
        EXPECT_EQ(folder.Entries(), entries);
        for (const auto& [target, link] : links) EXPECT_EQ(fs::read_symlink(at / link), target);
    }
    EXPECT_EQ(ContentOf(at / "read-only"), "old");
    EXPECT_EQ(ProblemOf([] { TextFileBag("/dev/zero").Load(); }), FileProblem::NotReadable);
    fs::resize_file(at / "private", kLargestPropertyFile + 1);
    EXPECT_EQ(ProblemOf([&] { TextFileBag(at / "private").Load(); }), FileProblem::NotReadable);
}

fs::path g_watched;
std::vector<fs::perms> g_seen;  // of the files there when a write met its limit

TEST(TextFileBag, AFullDiskLeavesTheOldFileAndANewOneIsAsPrivateFromItsFirstByte) {
    const Folder folder;
    const fs::path path = folder.path / "file";
    WriteFile(path, "the old content");
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    g_watched = folder.path;
    const auto handler = std::signal(SIGXFSZ, [](int) {
        g_seen.clear();
        for (const auto& entry : fs::directory_iterator(g_watched)) {
            g_seen.push_back(entry.status().permissions());
        }
    });
    for (const auto mode : {kOwnerOnly, kOwnerOnly | fs::perms::group_all}) {
        // The length of a text, and the bytes beyond which no file can be written.
        for (const auto& [length, room] : {std::pair(100u, 64u), {1 << 20, 64}, {1 << 16, 0}}) {
            fs::permissions(path, mode);
            TextFileBag bag(path);
            bag.WriteProperty("A", std::string(length, 'a'), Variant());
            const rlimit limit{room, before.rlim_max};
            setrlimit(RLIMIT_FSIZE, &limit);
            const std::string text = ErrorOf([&] { bag.Save(); }).what();
            setrlimit(RLIMIT_FSIZE, &before);
            EXPECT_TRUE(text.starts_with(path.string() + ": it cannot be written")) << text;
            EXPECT_EQ(std::exchange(g_seen, {}), std::vector(2, mode));
        }
    }
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(ContentOf(path), "the old content");
    EXPECT_EQ(folder.Entries(), 1);
}
#endif

}  // namespace
}  // namespace velmora::test
