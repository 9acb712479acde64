#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Runs a fuzz target over the files of one folder and over bytes at random, the same ones every
/// time, without any fuzzer. Fails when there are no files.
int main(int argc, char** argv) {
    namespace fs = std::filesystem;
    if (argc != 2 || !fs::is_directory(argv[1])) {
        std::fputs("usage: replay CORPUS-FOLDER\n", stderr);
        return 2;
    }
    std::vector<fs::path> inputs;
    for (const auto& entry : fs::directory_iterator(argv[1])) inputs.push_back(entry.path());
    std::sort(inputs.begin(), inputs.end());
    for (const auto& input : inputs) {
        std::printf("%s\n", input.filename().string().c_str());
        std::fflush(stdout);
        std::ifstream file(input, std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }
    std::mt19937 random(20200315);
    for (int run = 0; run < 500; ++run) {
        std::vector<std::uint8_t> bytes(random() % 512);
        for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
    return inputs.empty() ? 1 : 0;
}
