// A library to be loaded before the C library (LD_PRELOAD). It makes the disk slow or faulty for the files "data*.json".
// The file named by TINTWICK_TEST_DISK_FAULTS has one fault on each line, and may change at any time:
//   sync-delay 3000      each fsync() takes so many milliseconds
//   write-error 28       each write fails with this errno value
//   read-error 5         data.json cannot be opened for reading

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

/// The number of a fault, or 0.
int fault(const char* name)
{
    const char* path = std::getenv("TINTWICK_TEST_DISK_FAULTS");
    std::FILE* file = path != nullptr ? std::fopen(path, "re") : nullptr;
    if (file == nullptr) {
        return 0;
    }
    std::array<char, 32> word{};
    int number = 0;
    int found = 0;
    while (std::fscanf(file, "%31s %d", word.data(), &number) == 2) {
        if (std::strcmp(word.data(), name) == 0) {
            found = number;
        }
    }
    std::fclose(file);
    return found;
}

bool isData(const char* path)
{
    return std::strstr(path, "/Tintwick/data") != nullptr;
}

bool isData(int descriptor)
{
    std::array<char, 64> link{};
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", descriptor);
    std::array<char, 4096> path{};
    return ::readlink(link.data(), path.data(), path.size() - 1) > 0 && isData(path.data());
}

template <typename Function>
Function next(const char* name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

int failedWrite(int descriptor)
{
    return isData(descriptor) ? fault("write-error") : 0;
}

int openFile(const char* name, const char* path, int flags, mode_t mode)
{
    if ((flags & O_ACCMODE) == O_RDONLY && isData(path)) {
        if (const int error = fault("read-error"); error != 0) {
            errno = error;
            return -1;
        }
    }
    return next<int (*)(const char*, int, ...)>(name)(path, flags, mode);
}

} // namespace

// The C library declares these with reserved names.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

int open(const char* path, int flags, ...)
{
    std::va_list list;
    va_start(list, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(list, mode_t) : 0;
    va_end(list);
    return openFile("open", path, flags, mode);
}

int open64(const char* path, int flags, ...)
{
    std::va_list list;
    va_start(list, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(list, mode_t) : 0;
    va_end(list);
    return openFile("open64", path, flags, mode);
}

int fsync(int descriptor)
{
    if (isData(descriptor)) {
        const int delay = fault("sync-delay");
        const timespec time{delay / 1000, delay % 1000 * 1'000'000L};
        ::nanosleep(&time, nullptr);
    }
    return next<int (*)(int)>("fsync")(descriptor);
}

ssize_t pwrite(int descriptor, const void* bytes, size_t count, off_t offset)
{
    if (const int error = failedWrite(descriptor); error != 0) {
        errno = error;
        return -1;
    }
    return next<ssize_t (*)(int, const void*, size_t, off_t)>("pwrite")(descriptor, bytes, count, offset);
}

int fallocate(int descriptor, int mode, off_t offset, off_t length)
{
    if (const int error = failedWrite(descriptor); error != 0) {
        errno = error;
        return -1;
    }
    return next<int (*)(int, int, off_t, off_t)>("fallocate")(descriptor, mode, offset, length);
}

} // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
