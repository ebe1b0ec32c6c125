#pragma once

#ifdef COMMONUI_WITH_ODT

#include "measurement/ReportTables.h"

#include <deque>
#include <string>

namespace CommonUI::Measurement
{

/// The files of a package of the Open Document Format, text, with the list of them.
class COdtPackage
{
public:
    /// @param mediaType as in "text/xml"
    void Add(const std::string& name, const std::string& mediaType, std::string bytes);
    /// @throws ERequest where the package cannot be made
    void Write(const FWriteText& write) const;

private:
    struct SEntry {
        std::string name;
        std::string mediaType;
        std::string bytes;
    };

    std::string GetManifest() const;

    std::deque<SEntry> m_entries{};
};

} // namespace CommonUI::Measurement

#endif
