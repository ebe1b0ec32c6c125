#pragma once

#include "../common/Str.h"
#include "../export/Export.h"
#include "../platform/xml/XmlDocument.h"

#include <memory>

namespace CommonUI
{

/// The application's configuration file "VORNConfig.xml", which lies in the application folder and gives the
/// fields of the result database their display names:
///
///     <configuration>
///       <fields>
///         <field><database/><identifier>Sa</identifier><friendlyname>Mean roughness</friendlyname></field>
///       </fields>
///     </configuration>
///
/// User-interface thread only.
class COMMONUI_API CResourceParameters
{
public:
    /// @param xml what reads the file
    explicit CResourceParameters(std::unique_ptr<CXmlDocument> xml = MakeXmlDocument());

    /// The display name of a database field: that of the first field of the file that has an element
    /// "database" and this identifier. Empty when there is none, or the file is missing or cannot be used, of
    /// which the diagnostics tell (category u"ResourceParameters"). The first call reads the file, and no
    /// other does.
    /// @param id any text; none is part of a query
    CStr GetStringByDatabaseID(const CStr& id);

private:
    void Load();

    std::unique_ptr<CXmlDocument> m_xml;
    bool m_loaded = false; // or tried to
};

} // namespace CommonUI
