#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace CommonUI
{

/// A folder in another one.
struct SFolder {
    CStr name{};         ///< alone, without the path
    bool hidden = false; ///< not to be shown unless the user wants it

    friend bool operator==(const SFolder&, const SFolder&) = default;
};

/// What a drive says of a folder: the folders in it, in any order, or why they cannot be told.
struct SFolderListing {
    std::vector<SFolder> folders{}; ///< in any order; empty where there is an error
    CStr error{};                   ///< one sentence for the user; empty when the folder was read
};

/// What lists folders: the drives of the system, or what stands for them. Threads of the library ask it,
/// several at a time; each may wait as long as a drive takes. A thread that is given up still uses it, so
/// that it is shared.
class COMMONUI_API CFolderSource
{
public:
    CFolderSource() = default;
    virtual ~CFolderSource();
    CFolderSource(const CFolderSource&) = delete;
    CFolderSource& operator=(const CFolderSource&) = delete;

    /// The folders in a folder. It may take long.
    virtual SFolderListing List(const CStr& path) const = 0;
    /// The folders at the top, such as "/" or "C:\": told at once, without asking a drive.
    virtual std::vector<CStr> GetRoots() const = 0;
    /// What stands between the parts of a path. A slash does as well in paths that people enter.
    virtual char16_t GetSeparator() const { return u'/'; }
    /// Whether two names of folders in one place are names of the same one.
    virtual bool IsSameName(const CStr& one, const CStr& other) const { return one == other; }

    /// The root and the names that a path leads through; empty where it has no root of this source. Of roots
    /// in each other it takes the longest.
    std::vector<CStr> SplitPath(const CStr& path) const;
    /// The path of a folder in another one.
    CStr JoinPath(const CStr& path, const CStr& name) const;

private:
    bool IsSeparator(char16_t unit) const;
    std::size_t FindBehindRoot(const CStr& path, const CStr& root) const;
};

/// The folders of this machine. A folder whose name no text leads to is left out.
COMMONUI_API std::shared_ptr<const CFolderSource> GetSystemFolders();

} // namespace CommonUI
