#pragma once

#include "formats/detail/BinaryHeights.h"
#include "formats/x3p/detail/Archive.h"

#include <cstddef>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <vector>

namespace CommonUI::Formats
{

inline constexpr const char* c_mainEntry = "main.xml";

/// An axis of the description. Numbers of an absolute axis stand in the data, those of an incremental one are
/// multiples of the factor.
struct SX3pAxis {
    bool isAbsolute = false;
    ENumber type = ENumber::Double;
    SScale scale{};
};

/// What lies in an entry of its own.
struct SX3pLink {
    std::string entry{};    ///< empty for none
    std::string checksum{}; ///< empty where the description has none
};

/// What main.xml says of a surface or profile.
struct SX3pDescription {
    bool isProfile = false;
    std::size_t points = 0;
    std::size_t lines = 0;
    SX3pAxis x{};
    SX3pAxis y{};
    SX3pAxis z{};
    SX3pLink data{}; ///< empty where the data are in the description itself
    SX3pLink mask{}; ///< a bit for each point, whether it is valid
    std::string checksumEntry{};
    std::string date{}; ///< empty where it states none
};

/// The document main.xml.
class CX3pDocument
{
public:
    /// @throws EReadError where it is no document of X3P
    CX3pDocument(const CArchive& archive, const std::string& xml);

    SX3pDescription Describe() const;
    /// The texts of the points that stand in the document itself, one after the other.
    std::vector<std::string_view> GetData() const;

private:
    [[noreturn]] void Fail(const char* element, const std::string& message) const;
    std::size_t ReadCount(const pugi::xml_node& dimension, const char* name) const;
    double ReadNumber(const pugi::xml_node& axis, const char* name, double missing) const;
    SX3pAxis ReadAxis(const char* name) const;
    void CheckHeights(const SX3pAxis& axis) const;
    SX3pLink ReadLink(const pugi::xml_node& node, const char* path, const char* checksum) const;
    void ReadSize(SX3pDescription& description) const;

    const CArchive& m_archive;
    pugi::xml_document m_document{};
    pugi::xml_node m_root{};
};

} // namespace CommonUI::Formats
