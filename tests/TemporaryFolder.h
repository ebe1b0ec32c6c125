#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

/// A folder of the test's own, gone when the object is.
class CTemporaryFolder
{
public:
    CTemporaryFolder()
    {
        std::random_device random;
        do {
            m_path = std::filesystem::temp_directory_path() / ("commonui-test-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(m_path));
    }
    ~CTemporaryFolder()
    {
        std::error_code error;
        std::filesystem::remove_all(m_path, error);
    }
    CTemporaryFolder(const CTemporaryFolder&) = delete;
    CTemporaryFolder& operator=(const CTemporaryFolder&) = delete;

    const std::filesystem::path& GetPath() const { return m_path; }

    /// Writes a file; folders in its name come into being.
    void Write(const std::filesystem::path& name, const std::string& bytes) const
    {
        std::filesystem::create_directories((m_path / name).parent_path());
        std::ofstream(m_path / name, std::ios::binary) << bytes;
    }
    std::string Read(const std::filesystem::path& name) const
    {
        std::ifstream file(m_path / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::filesystem::path m_path;
};
