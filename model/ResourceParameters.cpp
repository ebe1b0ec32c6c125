#include "model/ResourceParameters.h"

#include "common/Diagnostics.h"
#include "common/file/FileBytes.h"
#include "platform/Folders.h"

#include <string>
#include <utility>

namespace CommonUI
{

CResourceParameters::CResourceParameters(std::unique_ptr<CXmlDocument> xml)
    : m_xml(std::move(xml))
{
}

CStr CResourceParameters::GetStringByDatabaseID(const CStr& id)
{
    if (!m_loaded)
        Load();
    return m_xml->QueryText(u"fields/field[database][identifier = $value]/friendlyname", id);
}

void CResourceParameters::Load()
{
    m_loaded = true;
    const CStr file = (GetFolders().GetApplicationFolder() / "VORNConfig.xml").u16string();
    std::string bytes;
    CStr reason;
    if (!ReadFileBytes(file, bytes, CXmlDocument::c_largestSize, reason) ||
        !m_xml->Load(bytes, u"configuration", reason))
        GetDiagnostics().Write(u"ResourceParameters", EDiagnosticLevel::Warning, file + u": " + reason);
}

} // namespace CommonUI
