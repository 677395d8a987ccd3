// A stand-in for libFuzzer's main where clang's runtime isn't used (the
// g++ sanitizer build of the tests): runs every seed once, then mutated
// seeds until the time is up. No coverage guidance; what it finds, it
// finds by volume. On a crash the input in hand is written to
// "fuzz-crash-<target>" in the working folder.
//
//   fuzz_<target> [-seconds=N] [-seed=N] FILE_OR_FOLDER...
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#define FERRYDOCK_FUZZ_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define FERRYDOCK_FUZZ_ASAN 1
#endif
#endif
#ifdef FERRYDOCK_FUZZ_ASAN
#include <sanitizer/common_interface_defs.h>
#endif

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

using Bytes = std::vector<uint8_t>;
constexpr size_t kMaxLength = 64 * 1024;

// The input being run, for the crash handlers; set before every run.
const Bytes* g_current = nullptr;
char g_crashPath[512] = "fuzz-crash";

// Only async-signal-safe calls: this runs inside a signal handler too.
void SaveCurrent() {
    if (!g_current) return;
    const int fd = ::open(g_crashPath, O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (fd < 0) return;
    size_t done = 0;
    while (done < g_current->size()) {
        const ssize_t n = ::write(fd, g_current->data() + done, g_current->size() - done);
        if (n <= 0) break;
        done += size_t(n);
    }
    ::close(fd);
    static const char note[] = "\n== the input that failed is saved as ";
    [[maybe_unused]] ssize_t ignored = ::write(2, note, sizeof note - 1);
    ignored = ::write(2, g_crashPath, std::strlen(g_crashPath));
    ignored = ::write(2, "\n", 1);
}

void OnSignal(int sig) {
    SaveCurrent();
    std::signal(sig, SIG_DFL);
    std::raise(sig);
}

// xorshift64*: small, fast, and the same sequence for the same seed.
class Random {
public:
    explicit Random(uint64_t seed) : state_(seed ? seed : 0x9E3779B97F4A7C15ull) {}
    uint64_t Next() {
        state_ ^= state_ >> 12;
        state_ ^= state_ << 25;
        state_ ^= state_ >> 27;
        return state_ * 0x2545F4914F6CDD1Dull;
    }
    size_t Below(size_t n) { return n == 0 ? 0 : size_t(Next() % n); }

private:
    uint64_t state_;
};

void AddSeed(const std::filesystem::path& p, std::vector<Bytes>& seeds) {
    std::ifstream in(p, std::ios::binary);
    Bytes b((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (b.size() > kMaxLength) b.resize(kMaxLength);
    seeds.push_back(std::move(b));
}

// Bytes that mean something to the readers: separators, line ends, quotes,
// RTF's braces and backslashes.
const uint8_t kInteresting[] = {' ', '\t', '\r', '\n', ';', '=', ',', '.', '-', '/', '\\', ':', '+', '*', '<',
                                '>', '"', '{', '}', '\'', '0', '9', 0, 0x7F, 0x80, 0xC3, 0xE9, 0xFF};
const char* const kTokens[] = {"99999999999999999999", "-2147483648", "4294967296", " -> ", "<DIR>", ";1",
                               "type=dir;", "sizd=", "\\u-1?", "\\'", "{\\colortbl;", "\\par ", "Feb 29",
                               "12:00", "2001-02-29", "\r\n"};

void Mutate(Bytes& b, const std::vector<Bytes>& seeds, Random& r) {
    const int steps = 1 + int(r.Below(8));
    for (int s = 0; s < steps; ++s) {
        const size_t at = r.Below(b.size() + 1);
        switch (r.Below(9)) {
        case 0:
            if (!b.empty()) b[r.Below(b.size())] ^= uint8_t(1u << r.Below(8));
            break;
        case 1:
            if (!b.empty()) b[r.Below(b.size())] = uint8_t(r.Next());
            break;
        case 2: b.insert(b.begin() + long(at), uint8_t(r.Next())); break;
        case 3: b.insert(b.begin() + long(at), kInteresting[r.Below(sizeof kInteresting)]); break;
        case 4: {
            const size_t len = r.Below(std::min<size_t>(b.size() - std::min(at, b.size()), 64) + 1);
            b.erase(b.begin() + long(at), b.begin() + long(std::min(at + len, b.size())));
            break;
        }
        case 5: {
            if (b.empty()) break;
            const size_t from = r.Below(b.size());
            const size_t len = r.Below(std::min<size_t>(b.size() - from, 128) + 1);
            const Bytes chunk(b.begin() + long(from), b.begin() + long(from + len));
            b.insert(b.begin() + long(at), chunk.begin(), chunk.end());
            break;
        }
        case 6: {
            const Bytes& other = seeds[r.Below(seeds.size())];
            if (other.empty()) break;
            const size_t from = r.Below(other.size());
            const size_t len = r.Below(std::min<size_t>(other.size() - from, 256) + 1);
            b.insert(b.begin() + long(at), other.begin() + long(from), other.begin() + long(from + len));
            break;
        }
        case 7: {
            const char* t = kTokens[r.Below(std::size(kTokens))];
            b.insert(b.begin() + long(at), t, t + std::strlen(t));
            break;
        }
        default: b.resize(at); break;
        }
        if (b.size() > kMaxLength) b.resize(kMaxLength);
    }
}

void Run(const Bytes& b) {
    g_current = &b;
    // A copy of exactly the input's size, so reading past it is caught.
    const std::unique_ptr<uint8_t[]> copy(new uint8_t[b.size() ? b.size() : 1]);
    if (!b.empty()) std::memcpy(copy.get(), b.data(), b.size());
    LLVMFuzzerTestOneInput(copy.get(), b.size());
}

}  // namespace

int main(int argc, char** argv) {
    double seconds = 3;
    uint64_t seed = 1;
    std::vector<Bytes> seeds;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        if (a.rfind("-seconds=", 0) == 0) {
            seconds = std::stod(a.substr(9));
        } else if (a.rfind("-seed=", 0) == 0) {
            seed = std::stoull(a.substr(6));
        } else if (std::filesystem::is_directory(a)) {
            for (const auto& e : std::filesystem::recursive_directory_iterator(a))
                if (e.is_regular_file()) AddSeed(e.path(), seeds);
        } else if (std::filesystem::is_regular_file(a)) {
            AddSeed(a, seeds);
        } else {
            std::fprintf(stderr, "no such seed: %s\n", a.c_str());
            return 2;
        }
    }
    if (seeds.empty()) seeds.emplace_back();

    const std::string name = std::filesystem::path(argv[0]).filename().string();
    std::snprintf(g_crashPath, sizeof g_crashPath, "fuzz-crash-%s", name.c_str());
#ifdef FERRYDOCK_FUZZ_ASAN
    __sanitizer_set_death_callback(SaveCurrent);
#endif
    for (int sig : {SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL}) std::signal(sig, OnSignal);

    for (const Bytes& s : seeds) Run(s);

    Random r(seed);
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    uint64_t runs = 0;
    Bytes input;
    while (std::chrono::steady_clock::now() < end) {
        // Mostly a fresh seed; now and then the last input again, to go deeper.
        if (r.Below(4) != 0 || input.empty()) input = seeds[r.Below(seeds.size())];
        for (int i = 0; i < 64; ++i, ++runs) {
            Bytes mutated = input;
            Mutate(mutated, seeds, r);
            Run(mutated);
            if (i == 63) input = std::move(mutated);
        }
    }
    g_current = nullptr;
    std::printf("%s: %zu seeds, %llu mutated inputs in %.0f s, no finding\n", name.c_str(), seeds.size(),
                static_cast<unsigned long long>(runs), seconds);
    return 0;
}
