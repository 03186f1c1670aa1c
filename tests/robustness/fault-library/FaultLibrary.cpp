// Loaded in front of the system's libraries (LD_PRELOAD): one call that the compound-file library makes for its output
// file fails, or is followed by a signal.
//   BRACKWATER_FAULT=CALL:COUNT:ERROR     the call of this name, counted from 0, fails with this error number
//   BRACKWATER_FAULT=CALL:COUNT:-SIGNAL   after the call the process gets this signal
//   BRACKWATER_FAULT_MARK=FILE            is made when that happened
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// The library's temporary file and the stream that writes into it. Other files of the process, such as the counters of
// a coverage run, are left alone.
int temporaryFile = -1;
std::FILE* sink = nullptr;
bool sinkIsInError = false;

class Fault {
public:
    // Takes the fault apart once.
    Fault() {
        const char* text = std::getenv("BRACKWATER_FAULT");
        if (text == nullptr || std::sscanf(text, "%31[^:]:%d:%d", _call, &_count, &_effect) != 3)
            _call[0] = '\0';
    }

    // Counts a call; true when it is the one.
    bool meets(const char* call) {
        if (std::strcmp(call, _call) != 0 || _count-- != 0)
            return false;
        if (const char* mark = std::getenv("BRACKWATER_FAULT_MARK"))
            close(open(mark, O_WRONLY | O_CREAT, 0600));
        return true;
    }
    [[nodiscard]] bool isSignal() const { return _effect < 0; }
    [[nodiscard]] int error() const { return _effect; }
    void sendSignal() const { raise(-_effect); }

private:
    char _call[32] = "";
    int _count = 0;
    int _effect = 0;
};

Fault& fault() {
    static Fault only;
    return only;
}

// Makes the call, or has it fail with `failed`.
template <typename Result, typename Call>
Result perform(const char* name, Result failed, Call call) {
    if (!fault().meets(name))
        return call();
    if (!fault().isSignal()) {
        errno = fault().error();
        return failed;
    }
    const Result result = call();
    fault().sendSignal();
    return result;
}

template <typename Function>
Function next(const char* name) {
    Function function = nullptr;
    void* const symbol = dlsym(RTLD_NEXT, name);
    std::memcpy(&function, &symbol, sizeof function);
    return function;
}

} // namespace

extern "C" {

int g_mkstemp(char* path) {
    static const auto real = next<int (*)(char*)>("g_mkstemp");
    temporaryFile = perform("g_mkstemp", -1, [&] { return real(path); });
    return temporaryFile;
}

FILE* fdopen(int file, const char* mode) {
    static const auto real = next<FILE* (*)(int, const char*)>("fdopen");
    if (file != temporaryFile)
        return real(file, mode);
    sink = perform("fdopen", static_cast<FILE*>(nullptr), [&] { return real(file, mode); });
    return sink;
}

size_t fwrite(const void* bytes, size_t size, size_t count, FILE* stream) {
    static const auto real = next<size_t (*)(const void*, size_t, size_t, FILE*)>("fwrite");
    if (sink == nullptr || stream != sink)
        return real(bytes, size, count, stream);
    const size_t written = perform("fwrite", size_t{0}, [&] { return real(bytes, size, count, stream); });
    sinkIsInError = sinkIsInError || (written == 0 && count != 0);
    return written;
}

int ferror(FILE* stream) {
    static const auto real = next<int (*)(FILE*)>("ferror");
    return sinkIsInError && stream == sink ? 1 : real(stream);
}

int fseeko(FILE* stream, off_t offset, int origin) {
    static const auto real = next<int (*)(FILE*, off_t, int)>("fseeko");
    if (sink == nullptr || stream != sink)
        return real(stream, offset, origin);
    return perform("fseeko", -1, [&] { return real(stream, offset, origin); });
}

// A failed close closes all the same, as the system's does.
int fclose(FILE* stream) {
    static const auto real = next<int (*)(FILE*)>("fclose");
    if (sink == nullptr || stream != sink)
        return real(stream);
    sink = nullptr;
    temporaryFile = -1;
    const int result = real(stream);
    return perform("fclose", -1, [&] { return result; });
}

int rename(const char* from, const char* to) {
    static const auto real = next<int (*)(const char*, const char*)>("rename");
    if (std::strstr(from, ".gsf-save-") == nullptr)
        return real(from, to);
    return perform("rename", -1, [&] { return real(from, to); });
}

} // extern "C"
