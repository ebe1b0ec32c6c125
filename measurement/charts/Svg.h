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
    /// Goes to a place without drawing; coordinates are those of the picture, as CoordinateText writes them.
    void MoveTo(double x, double y);
    /// Draws a straight line to a place.
    void LineTo(double x, double y);
    /// Draws a straight line back to where the last MoveTo went.
    void Close() { m_data += 'Z'; }

    /// Whether nothing has been put into the path.
    bool IsEmpty() const { return m_data.empty(); }
    /// The value of the attribute `d`.
    const std::string& GetData() const { return m_data; }

private:
    void Append(char command, double x, double y);

    std::string m_data{};
};

/// An attribute of an element. Texts are UTF-8 and are escaped.
struct COMMONUIMEASUREMENT_API SSvgAttribute {
    /// An attribute with a text. @param attribute its name, which must outlive the object
    SSvgAttribute(std::string_view attribute, std::string_view text);
    /// The same of a literal, which would be ambiguous otherwise.
    SSvgAttribute(std::string_view attribute, const char* text);
    /// An attribute with a number, as CoordinateText writes it.
    SSvgAttribute(std::string_view attribute, double coordinate);

    std::string_view name; ///< as it was given, not copied
    std::string value;     ///< escaped
};

/// Writes a picture as an SVG element that stands in a page: as wide as the room there, named for those who
/// do not see it, in the font of the page. Colours come from the page's style by classes.
class COMMONUIMEASUREMENT_API CSvg
{
public:
    /// Attributes of an element, in the order in which they are written.
    using CAttributes = std::initializer_list<SSvgAttribute>;

    /// @param width, height of the coordinates: x from 0 to the right, y from 0 downwards
    CSvg(double width, double height, const CStr& title, const CStr& description);

    /// Writes an element without content. Its name is written as it is.
    void Add(std::string_view element, CAttributes attributes);
    /// Writes a text at a place. @param classes of the style, which says how it lies about the place
    void AddText(const CStr& text, double x, double y, std::string_view classes);
    /// Writes a straight line. @param classes of the style
    void AddLine(double x1, double y1, double x2, double y2, std::string_view classes);
    /// Writes a path; nothing for one that is empty. @param classes of the style
    void AddPath(const CSvgPath& path, std::string_view classes);
    /// What follows lies in this element.
    void Open(std::string_view element, CAttributes attributes);
    /// Ends the element that was opened last. The picture itself is ended by Finish.
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
