#pragma once

#include <functional>
#include <utility>

#ifdef _WIN32
#include <cerrno>
#include <cstdint>
#include <memory>
#include <process.h>
#include <system_error>
#else
#include <thread>
#endif

namespace CommonUI::Analysis
{

/// Does work on a thread of its own that nobody waits for, such as work that a drive may hold up for ever.
/// The work shares the ownership of what it uses; an exception that leaves it ends the process.
/// @throws std::system_error if the system gives no thread
inline void StartDetachedThread(std::function<void()> work)
{
#ifdef _WIN32
    // Runtimes there close the handle of a detached std::thread twice. By the second time it may be the
    // handle of another thread, which then never starts.
    using FWork = std::function<void()>;
    auto given = std::make_unique<FWork>(std::move(work));
    const auto run = [](void* started) noexcept {
        (*std::unique_ptr<FWork>(static_cast<FWork*>(started)))();
    };
    if (::_beginthread(run, 0, given.get()) == static_cast<std::uintptr_t>(-1))
        throw std::system_error(errno, std::generic_category());
    given.release();
#else
    std::thread(std::move(work)).detach();
#endif
}

} // namespace CommonUI::Analysis
