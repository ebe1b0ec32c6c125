#pragma once

#include "formats/detail/InputFile.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <zip.h>

namespace CommonUI::Formats
{

struct SDiscardArchive {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
using CZip = std::unique_ptr<zip_t, SDiscardArchive>;

/// A ZIP archive that may come from anybody. Nothing of it is unpacked to the disk, and of an entry no more
/// than was asked for to memory. One that looks as if it were meant to do harm is refused as a whole.
class CArchive
{
public:
    /// @throws EReadError
    explicit CArchive(CInputFile& file);

    const CInputFile& GetFile() const { return m_file; }
    bool Has(const std::string& entry) const;
    /// A small entry as a whole. @throws EReadError where it is larger than `most` bytes
    std::string Read(const std::string& entry, std::uint64_t most) const;
    /// Gives the bytes of an entry piece by piece. All pieces but the last are of a size that is a multiple
    /// of 64.
    /// @param size what the entry has to have
    void Read(const std::string& entry, std::uint64_t size,
              const std::function<void(std::string_view piece)>& take) const;

    /// Throws EReadError with the names of the file and the entry in front of the message.
    [[noreturn]] void Fail(const std::string& entry, const std::string& message) const;

private:
    void CheckNames() const;
    std::uint64_t SizeOf(const std::string& entry) const;
    void CheckEntry(const std::string& entry, const zip_stat_t& status) const;

    CInputFile& m_file;
    SBytes m_bytes{};
    CZip m_zip{};
};

/// Whether a path leads out of the folder that it is meant for, or could do so somewhere.
bool IsClimbing(std::string_view path);

} // namespace CommonUI::Formats
