#pragma once

#include "common/PathText.h"
#include "tests/TemporaryFolder.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace Fuzz
{

/// A file that is written anew for each input, in a folder that goes with the process.
class CFuzzFile
{
public:
    explicit CFuzzFile(std::string_view name)
        : m_name(name)
    {
    }

    void Write(std::string_view bytes) const { Folder().Write(m_name, std::string(bytes)); }
    std::string Read() const { return Folder().Read(m_name); }
    std::filesystem::path GetPath() const { return Folder().GetPath() / m_name; }
    CommonUI::CStr GetName() const
    {
        CommonUI::CStr name;
        CommonUI::ToText(GetPath(), name);
        return name;
    }

private:
    static const CTemporaryFolder& Folder()
    {
        static const CTemporaryFolder folder;
        return folder;
    }

    std::string m_name;
};

} // namespace Fuzz
