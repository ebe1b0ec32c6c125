#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace CommonUI::Measurement
{

/// A coordinate in its shortest form with at most two decimals: "12", "0.5", "-3.25". What is not a number is
/// 0.
COMMONUIMEASUREMENT_API std::string CoordinateText(double value);

/// A text as it may stand in an element or in an attribute in quotes: markup characters as entities, control
/// characters as blanks and what is no text in UTF-8 as U+FFFD.
COMMONUIMEASUREMENT_API std::string EscapeXml(std::string_view text);

/// The data of a path.
class COMMONUIMEASUREMENT_API CSvgPath
{
public:
    void MoveTo(double x, double y);
    void LineTo(double x, double y);
    void Close() { m_data += 'Z'; }

    bool IsEmpty() const { return m_data.empty(); }
    const std::string& GetData() const { return m_data; }

private:
    void Append(char command, double x, double y);

    std::string m_data{};
};

/// An attribute of an element. Texts are UTF-8 and are escaped.
struct COMMONUIMEASUREMENT_API SSvgAttribute {
    SSvgAttribute(std::string_view attribute, std::string_view text);
    SSvgAttribute(std::string_view attribute, const char* text);
    SSvgAttribute(std::string_view attribute, double coordinate);

    std::string_view name;
    std::string value; ///< escaped
};

/// Writes a picture as an SVG element that stands in a page: as wide as the room there, named for those who
/// do not see it, in the font of the page. Colours come from the page's style by classes.
class COMMONUIMEASUREMENT_API CSvg
{
public:
    using CAttributes = std::initializer_list<SSvgAttribute>;

    /// @param width, height of the coordinates: x from 0 to the right, y from 0 downwards
    CSvg(double width, double height, const CStr& title, const CStr& description);

    void Add(std::string_view element, CAttributes attributes);
    void AddText(const CStr& text, double x, double y, std::string_view classes);
    void AddLine(double x1, double y1, double x2, double y2, std::string_view classes);
    void AddPath(const CSvgPath& path, std::string_view classes);
    /// What follows lies in this element.
    void Open(std::string_view element, CAttributes attributes);
    void Close();

    /// The element, with all that is open closed.
    std::string Finish();

private:
    void Begin(std::string_view element, CAttributes attributes);
    void AddTextElement(std::string_view element, const CStr& text);

    std::string m_text{};
    std::vector<std::string> m_open{};
};

} // namespace CommonUI::Measurement
