#pragma once

#include "../../export/Export.h"
#include "../Str.h"

#include <filesystem>
#include <memory>
#include <string_view>

namespace CommonUI
{

/// A file's new content, which is written piece by piece and takes the file's place when it is whole, as by
/// ReplaceFileBytes. Functions return false, with a reason, when that fails; the file is then as it was.
/// After a failure, and after the content has taken its place, nothing more is to be asked for.
class COMMONDLL_API CFileReplacement
{
public:
    CFileReplacement() noexcept;
    /// Leaves nothing of a content that has not taken its place, or has for now only.
    ~CFileReplacement();
    CFileReplacement(const CFileReplacement&) = delete;
    CFileReplacement& operator=(const CFileReplacement&) = delete;

    /// To be called first, and once.
    /// @param readers a file whose permissions the content gets, and the one to write it; empty for those of
    ///     the file that is replaced
    bool Open(const CStr& fileName, CStr& reason, const CStr& readers = {});
    /// Likewise, by a path, which may have bytes that are no characters.
    bool OpenPath(const std::filesystem::path& path, CStr& reason);
    /// Writes all of the bytes behind what has been written. @param reason of a failure; else left alone
    bool Write(std::string_view bytes, CStr& reason);
    /// Puts the content in its place.
    bool Replace(CStr& reason);
    /// Puts the content in its place until the object goes, and then the old content again, unless Keep is
    /// called: for several files that are replaced together.
    bool ReplaceForNow(CStr& reason);
    /// Leaves the content in its place. To be called after ReplaceForNow.
    void Keep() noexcept;

    /// Removes what processes that were killed, a minute ago or earlier, have left of new contents of a file.
    /// Replacing it does that, too; this is for one that is not replaced again. Never fails.
    static void RemoveRests(const std::filesystem::path& path);

private:
    struct SState;

    std::unique_ptr<SState> m_state;
};

} // namespace CommonUI
