/*
 * The main() of a fuzz target in a build without libFuzzer: runs the target once on each input.
 *     fuzz_TARGET FILE_OR_FOLDER...
 */
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

// Targets with a mutator refer to it. A replay never changes an input.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *, std::size_t, std::size_t)
{
    std::abort();
}

namespace {

std::vector<fs::path> filesIn(const fs::path &path)
{
    if (!fs::is_directory(path))
        return {path};
    std::vector<fs::path> files;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(path)) {
        if (entry.is_regular_file())
            files.push_back(entry.path());
    }
    return files;
}

// Prints the name first, so that it is the last line when the input ends the program.
bool replay(const fs::path &path)
{
    std::fprintf(stderr, "%s\n", path.c_str());
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> octets(std::istreambuf_iterator<char>(file), {});
    if (!file) {
        std::fprintf(stderr, "cannot be read\n");
        return false;
    }
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(octets.data()), octets.size());
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        for (const fs::path &path : filesIn(argv[i])) {
            if (!replay(path))
                return EXIT_FAILURE;
        }
    }
    return argc > 1 ? EXIT_SUCCESS : EXIT_FAILURE;
}
