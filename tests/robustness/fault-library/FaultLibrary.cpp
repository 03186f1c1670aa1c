// Loaded in front of the system's libraries (LD_PRELOAD): a call that is made for the output's file fails, or is
// followed by a signal.
//   BRACKWATER_FAULT=CALL:COUNT:ERROR     the call of this name, counted from 0, fails with this error number
//   BRACKWATER_FAULT=CALL:COUNT:-SIGNAL   after the call the process gets this signal
//   BRACKWATER_FAULT=FAULT,FAULT          both
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

// The temporary file and the stream that writes into it. Other files of the process, such as the counters of
// a coverage run, are left alone.
int temporaryFile = -1;
std::FILE* sink = nullptr;
bool sinkIsInError = false;

class Fault {
public:
    explicit Fault(const char* text) {
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

// The fault that is due now; null without one.
Fault* metFault(const char* call) {
    static const char* const text = std::getenv("BRACKWATER_FAULT");
    static const char* const comma = text == nullptr ? nullptr : std::strchr(text, ',');
    static Fault faults[] = {Fault(text), Fault(comma == nullptr ? nullptr : comma + 1)};
    for (Fault& fault : faults)
        if (fault.meets(call))
            return &fault;
    return nullptr;
}

// Makes the call, or has it fail with `failed`.
template <typename Result, typename Call>
Result perform(const char* name, Result failed, Call call) {
    const Fault* fault = metFault(name);
    if (fault == nullptr)
        return call();
    if (!fault->isSignal()) {
        errno = fault->error();
        return failed;
    }
    const Result result = call();
    fault->sendSignal();
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

int g_mkstemp_full(char* path, int flags, int mode) {
    static const auto real = next<int (*)(char*, int, int)>("g_mkstemp_full");
    temporaryFile = perform("g_mkstemp_full", -1, [&] { return real(path, flags, mode); });
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

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
    static const auto real = next<int (*)(int, const char*, int, const char*, unsigned)>("renameat2");
    return perform("renameat2", -1, [&] { return real(fromFolder, from, toFolder, to, flags); });
}

int link(const char* from, const char* to) {
    static const auto real = next<int (*)(const char*, const char*)>("link");
    return perform("link", -1, [&] { return real(from, to); });
}

int rename(const char* from, const char* to) {
    static const auto real = next<int (*)(const char*, const char*)>("rename");
    return perform("rename", -1, [&] { return real(from, to); });
}

} // extern "C"
