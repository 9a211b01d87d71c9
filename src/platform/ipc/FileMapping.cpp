// Named blocks of memory that the processes of one user share.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include <platform/io/Descriptor.h>
#include <platform/io/LockFile.h>
#include <platform/ipc/FileMapping.h>
#include <platform/ipc/RuntimeFolder.h>

namespace orvo {
namespace {

// Whoever opens a block or lets go of it holds this, so that nobody comes or goes meanwhile.
std::string GuardPath(const std::string& folder) {
    return folder + "/blocks.lock";
}

// A hold on a block: its file with a shared lock, which the system takes away from whoever ends.
// So nobody is alive who has the block open where the lock can be had alone.
class Block {
public:
    Block(std::string folder, std::string path, Descriptor file, std::size_t size)
        : m_folder(std::move(folder)),
          m_path(std::move(path)),
          m_file(std::move(file)),
          m_size(size) {}
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    ~Block() {
        LockFile guard;
        const bool isGuarded = guard.Lock(GuardPath(m_folder));
        if (isGuarded && ::flock(m_file.Number(), LOCK_EX | LOCK_NB) == 0) {
            ::unlink(m_path.c_str());
        }
    }

    int Number() const { return m_file.Number(); }
    std::size_t Size() const { return m_size; }

private:
    std::string m_folder;
    std::string m_path;
    Descriptor m_file;
    std::size_t m_size;
};
using BlockPointer = std::shared_ptr<Block>;

struct View {
    BlockPointer block;
    std::size_t length;
};

struct OpenBlocks {
    std::mutex mutex;
    std::map<HANDLE, BlockPointer> handles;
    std::map<const void*, View> views;
    std::uintptr_t next = 4;
};

OpenBlocks& Blocks() {
    static OpenBlocks blocks;
    return blocks;
}

thread_local long g_lastError = ERROR_SUCCESS;

template <class Result>
Result Fail(long error, Result result) {
    SetLastError(error);
    return result;
}

// What the system calls of this file fail with.
long ErrorOfSystem() {
    switch (errno) {
        case ENOENT:
            return ERROR_FILE_NOT_FOUND;
        case ENOSPC:
        case ENOMEM:
        case EFBIG:
        case EMFILE:
        case ENFILE:
            return ERROR_NOT_ENOUGH_MEMORY;
        default:
            return ERROR_ACCESS_DENIED;
    }
}

// Makes the file all zeros. With its memory reserved at once, as a later lack of it would end
// whoever touches the block.
bool Renew(int file, off_t size) {
    if (::ftruncate(file, 0) != 0) return false;
    const int failure = ::posix_fallocate(file, 0, size);
    if (failure != 0) errno = failure;
    return failure == 0;
}

// `size` is 0 where a block that isn't there must not be made. Sets `isThere` where it was there.
BlockPointer Hold(const char* name, off_t size, bool& isThere) {
    std::string error;
    const std::string folder = RuntimeFolder(error);
    LockFile guard;
    if (folder.empty() || !guard.Lock(GuardPath(folder))) {
        return Fail(ERROR_ACCESS_DENIED, BlockPointer());
    }
    const std::string path = folder + '/' + FileNameOf(name) + ".block";
    const int flags = O_RDWR | O_CLOEXEC | O_NOFOLLOW | (size != 0 ? O_CREAT : 0);
    Descriptor file(::open(path.c_str(), flags, 0600));
    if (!file.IsOpen()) return Fail(ErrorOfSystem(), BlockPointer());
    isThere = ::flock(file.Number(), LOCK_EX | LOCK_NB) != 0;
    if (!isThere && (size == 0 || !Renew(file.Number(), size))) {
        const long failure = size == 0 ? ERROR_FILE_NOT_FOUND : ErrorOfSystem();
        ::unlink(path.c_str());
        return Fail(failure, BlockPointer());
    }
    struct stat status {};
    if (::flock(file.Number(), LOCK_SH) != 0 || ::fstat(file.Number(), &status) != 0) {
        return Fail(ErrorOfSystem(), BlockPointer());
    }
    return std::make_shared<Block>(folder, path, std::move(file),
                                   static_cast<std::size_t>(status.st_size));
}

HANDLE AddHandle(BlockPointer block) {
    OpenBlocks& blocks = Blocks();
    const std::lock_guard lock(blocks.mutex);
    const HANDLE handle = reinterpret_cast<HANDLE>(std::exchange(blocks.next, blocks.next + 4));
    blocks.handles.emplace(handle, std::move(block));
    return handle;
}

BlockPointer Find(HANDLE handle) {
    OpenBlocks& blocks = Blocks();
    const std::lock_guard lock(blocks.mutex);
    const auto found = blocks.handles.find(handle);
    return found == blocks.handles.end() ? nullptr : found->second;
}

bool HasName(const char* name) {
    return name != nullptr && *name != '\0';
}

}  // namespace

HANDLE CreateFileMappingA(HANDLE file, const void* security, std::uint32_t protection,
                          std::uint32_t sizeHigh, std::uint32_t sizeLow, const char* name) {
    const std::uint64_t size = std::uint64_t{sizeHigh} << 32U | sizeLow;
    if (file != INVALID_HANDLE_VALUE || security != nullptr || protection != PAGE_READWRITE ||
        size == 0 || size > std::uint64_t{std::numeric_limits<off_t>::max()}) {
        return Fail(ERROR_INVALID_PARAMETER, HANDLE());
    }
    if (!HasName(name)) return Fail(ERROR_INVALID_NAME, HANDLE());
    bool isThere = false;
    BlockPointer block = Hold(name, static_cast<off_t>(size), isThere);
    if (block == nullptr) return nullptr;
    SetLastError(isThere ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
    return AddHandle(std::move(block));
}

HANDLE OpenFileMappingA(std::uint32_t access, int, const char* name) {
    if (access != FILE_MAP_ALL_ACCESS) return Fail(ERROR_INVALID_PARAMETER, HANDLE());
    if (!HasName(name)) return Fail(ERROR_INVALID_NAME, HANDLE());
    bool isThere = false;
    BlockPointer block = Hold(name, 0, isThere);
    return block == nullptr ? nullptr : AddHandle(std::move(block));
}

void* MapViewOfFileEx(HANDLE mapping, std::uint32_t access, std::uint32_t offsetHigh,
                      std::uint32_t offsetLow, std::size_t length, void* address) {
    if (access != FILE_MAP_ALL_ACCESS || offsetHigh != 0 || offsetLow != 0 || address != nullptr) {
        return Fail(ERROR_INVALID_PARAMETER, static_cast<void*>(nullptr));
    }
    BlockPointer block = Find(mapping);
    if (block == nullptr) return Fail(ERROR_INVALID_HANDLE, static_cast<void*>(nullptr));
    if (length == 0) length = block->Size();
    // Touching what lies behind the end of the file would end the process.
    if (length > block->Size()) return Fail(ERROR_ACCESS_DENIED, static_cast<void*>(nullptr));
    void* view = ::mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_SHARED, block->Number(), 0);
    if (view == MAP_FAILED) return Fail(ERROR_NOT_ENOUGH_MEMORY, static_cast<void*>(nullptr));
    OpenBlocks& blocks = Blocks();
    const std::lock_guard lock(blocks.mutex);
    blocks.views.emplace(view, View{std::move(block), length});
    return view;
}

int UnmapViewOfFile(const void* address) {
    OpenBlocks& blocks = Blocks();
    std::unique_lock lock(blocks.mutex);
    const auto found = blocks.views.find(address);
    if (found == blocks.views.end()) return Fail(ERROR_INVALID_ADDRESS, 0);
    const auto node = blocks.views.extract(found);
    // While nobody else can be given this address again.
    ::munmap(const_cast<void*>(node.key()), node.mapped().length);
    // A last hold waits for the guard, for which nobody need wait here.
    lock.unlock();
    return 1;
}

int CloseHandle(HANDLE handle) {
    OpenBlocks& blocks = Blocks();
    std::unique_lock lock(blocks.mutex);
    const auto node = blocks.handles.extract(handle);
    lock.unlock();
    return node.empty() ? Fail(ERROR_INVALID_HANDLE, 0) : 1;
}

long GetLastError() {
    return g_lastError;
}

void SetLastError(long error) {
    g_lastError = error;
}

}  // namespace orvo
