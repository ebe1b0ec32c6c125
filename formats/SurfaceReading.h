#pragma once

#include "../export/Export.h"
#include "SurfaceReader.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>

namespace CommonUI::Formats
{

/// Reads a surface on a thread of its own, which may be given up at any time: somebody who waits for a drive
/// that does not answer is free at once. A thread that was given up ends when its drive answers; nobody hears
/// of what it has read.
class COMMONUIFORMATS_API CSurfaceReading
{
public:
    /// What reads: ReadSurface, or what stands in for it. It is called on the thread.
    using FRead = std::function<Analysis::SSurface(const std::filesystem::path&, const FProgress&)>;

    /// Begins to read.
    /// @throws std::system_error when the system has no thread left
    explicit CSurfaceReading(const std::filesystem::path& path);
    CSurfaceReading(const std::filesystem::path& path, FRead read); ///< has the file read by a function
    /// Gives the reading up, without waiting.
    ~CSurfaceReading();
    CSurfaceReading(const CSurfaceReading&) = delete;
    CSurfaceReading& operator=(const CSurfaceReading&) = delete;

    /// Waits until the file is read, but no longer than that. @return whether it is
    bool WaitFor(std::chrono::milliseconds time) const;
    /// The share that is done, 0 to 1.
    double GetFraction() const noexcept;
    /// What was read, once. Waits for it.
    /// @throws EReadError
    Analysis::SSurface Take();

private:
    struct SShared;

    std::shared_ptr<SShared> m_shared;
};

} // namespace CommonUI::Formats
