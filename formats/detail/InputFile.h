#pragma once

#include "formats/SurfaceReader.h"

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace CommonUI::Formats
{

/// Bytes that are not set to zero before they are read.
struct SBytes {
    std::unique_ptr<char[]> bytes;
    std::size_t size;

    std::string_view View() const { return {bytes.get(), size}; }
};

/// A file that is read. Its first bytes are at hand before anything else is read of it.
class CInputFile
{
public:
    static constexpr std::size_t c_headSize = 1024;

    /// @throws EReadError where it is no file that can be read
    explicit CInputFile(const std::filesystem::path& path);

    /// How messages call the file, see NameInMessages.
    const std::string& GetName() const { return m_name; }
    std::uintmax_t GetSize() const { return m_size; }
    /// The first bytes, c_headSize at the most.
    std::string_view GetHead() const { return m_head; }

    /// Reads from a place to one of which the size says that it is in the file.
    void Read(std::uintmax_t place, std::span<char> bytes);
    SBytes ReadAll();

    /// Throws EReadError with the name of the file in front of the message.
    [[noreturn]] void Fail(const std::string& message) const;

private:
    std::string m_name;
    std::uintmax_t m_size = 0;
    std::ifstream m_stream{};
    std::string m_head{};
};

std::string PathToUtf8(const std::filesystem::path& path);
/// In UTF-8, without control characters: they must not break a message, nor act on the terminal that shows
/// it.
std::string NameInMessages(const std::filesystem::path& path);

} // namespace CommonUI::Formats
