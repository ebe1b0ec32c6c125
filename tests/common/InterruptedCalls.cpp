#if !defined(_WIN32)

#include "tests/common/InterruptedCalls.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <deque>
#include <dlfcn.h>
#include <sys/types.h>

// The libraries find these functions before those of the system.

namespace
{

enum ECall { Open, Write, Sync, Close, Rename, Lock, Truncate, OpenStream, CallCount };

constexpr std::array c_names{"open", "write", "fsync", "close", "rename", "flock", "ftruncate", "fopen64"};

bool s_isOn = false;
std::array<int, CallCount> s_calls{};
std::deque<int> s_openErrors;

bool IsInterrupted(ECall call)
{
    return s_isOn && ++s_calls[call] % 2 == 1;
}

template<class FCall>
FCall* Find(ECall call)
{
    return reinterpret_cast<FCall*>(dlsym(RTLD_NEXT, c_names[call]));
}

template<ECall Call, class TResult, class... TArgs>
TResult CallOrInterrupt(TResult failure, TArgs... args)
{
    static const auto real = Find<TResult(TArgs...)>(Call);
    if (IsInterrupted(Call)) {
        // A file is closed all the same.
        if constexpr (Call == Close)
            real(args...);
        errno = EINTR;
        return failure;
    }
    return real(args...);
}

} // namespace

#pragma GCC visibility push(default)

// By their names in the object file, as the headers may make macros and inline functions of them.
int InterruptedOpen(const char* path, int flags, mode_t mode) __asm__("open");
ssize_t InterruptedWrite(int file, const void* bytes, std::size_t count) __asm__("write");
int InterruptedSync(int file) __asm__("fsync");
int InterruptedClose(int file) __asm__("close");
int InterruptedRename(const char* from, const char* to) __asm__("rename");
int InterruptedLock(int file, int operation) __asm__("flock");
int InterruptedTruncate(int file, off_t length) __asm__("ftruncate");
FILE* InterruptedOpenStream(const char* path, const char* mode) __asm__("fopen64");

#pragma GCC visibility pop

int InterruptedOpen(const char* path, int flags, mode_t mode)
{
    if (!s_openErrors.empty()) {
        errno = s_openErrors.front();
        s_openErrors.pop_front();
        return -1;
    }
    return CallOrInterrupt<Open>(-1, path, flags, mode);
}

ssize_t InterruptedWrite(int file, const void* bytes, std::size_t count)
{
    return CallOrInterrupt<Write>(ssize_t(-1), file, bytes, count);
}

int InterruptedSync(int file)
{
    return CallOrInterrupt<Sync>(-1, file);
}

int InterruptedClose(int file)
{
    return CallOrInterrupt<Close>(-1, file);
}

int InterruptedRename(const char* from, const char* to)
{
    return CallOrInterrupt<Rename>(-1, from, to);
}

int InterruptedLock(int file, int operation)
{
    return CallOrInterrupt<Lock>(-1, file, operation);
}

int InterruptedTruncate(int file, off_t length)
{
    return CallOrInterrupt<Truncate>(-1, file, length);
}

FILE* InterruptedOpenStream(const char* path, const char* mode)
{
    return CallOrInterrupt<OpenStream>(static_cast<FILE*>(nullptr), path, mode);
}

CInterruptedCalls::CInterruptedCalls()
{
    s_calls = {};
    s_isOn = true;
}

CInterruptedCalls::~CInterruptedCalls()
{
    s_isOn = false;
}

std::map<std::string, int> CInterruptedCalls::GetCounts() const
{
    std::map<std::string, int> counts;
    for (std::size_t call = 0; call < c_names.size(); ++call)
        counts[c_names[call]] = (s_calls[call] + 1) / 2;
    return counts;
}

void FailToOpen(std::initializer_list<int> errors)
{
    s_openErrors = errors;
}

#endif
