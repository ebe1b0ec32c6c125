#include "formats/detail/InputFile.h"

#include "formats/detail/TextScanner.h"

#include <algorithm>
#include <limits>
#include <new>

namespace CommonUI::Formats
{

CInputFile::CInputFile(const std::filesystem::path& path)
    : m_name(NameInMessages(path))
{
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status))
        Fail("no such file");
    if (!std::filesystem::is_regular_file(status))
        Fail("not a file");
    m_size = std::filesystem::file_size(path, error);
    m_stream.open(path, std::ios::binary);
    if (error || !m_stream)
        Fail("the file cannot be opened");
    m_head.resize(static_cast<std::size_t>(std::min<std::uintmax_t>(c_headSize, m_size)));
    Read(0, m_head);
}

void CInputFile::Read(std::uintmax_t place, std::span<char> bytes)
{
    m_stream.seekg(static_cast<std::streamoff>(place));
    m_stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!m_stream)
        Fail("the file cannot be read");
}

SBytes CInputFile::ReadAll()
{
    if (m_size > std::numeric_limits<std::size_t>::max())
        throw std::bad_alloc();
    const auto size = static_cast<std::size_t>(m_size);
    SBytes all{std::make_unique_for_overwrite<char[]>(size), size};
    Read(0, {all.bytes.get(), size});
    return all;
}

void CInputFile::Fail(const std::string& message) const
{
    throw EReadError(m_name + ": " + message);
}

std::string PathToUtf8(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return ToUtf8({reinterpret_cast<const char*>(text.data()), text.size()});
}

std::string NameInMessages(const std::filesystem::path& path)
{
    return ReplaceControls(PathToUtf8(path));
}

} // namespace CommonUI::Formats
