#pragma once

#include "../files/FileManager.h"

#include <filesystem>
#include <vector>

namespace CommonUI
{

/// A file manager without a display: its trash is a folder, and it keeps what was opened.
class COMMONUI_API CMemoryFileManager : public CFileManager
{
public:
    /// @param trash an existing folder on the file system of the files; when empty, nothing can be moved
    ///     there
    explicit CMemoryFileManager(std::filesystem::path trash);

    /// A file of that name that is in the trash already is kept; the new one gets a number.
    bool MoveToTrash(const CStr& path) override;
    bool OpenFolder(const CStr& folder) override;
    bool OpenFile(const CStr& path) override;

    /// The folders and files that were opened, the oldest first.
    const std::vector<CStr>& GetOpened() const noexcept { return m_opened; }

private:
    std::filesystem::path m_trash;
    std::vector<CStr> m_opened;
};

} // namespace CommonUI
