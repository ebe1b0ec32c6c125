#pragma once

#include "export/FromChars.h"

#include <algorithm>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// A value of JSON. What is asked for and is not there throws.
struct SJson {
    enum class EKind { Null, Number, Text, Array, Object };

    EKind kind = EKind::Null;
    double number = 0;
    std::string text{};
    std::vector<SJson> elements{};
    std::map<std::string, SJson> members{};

    const SJson& operator[](const char* key) const { return members.at(key); }
    const SJson& operator[](std::integral auto index) const
    {
        return elements.at(static_cast<std::size_t>(index));
    }
    bool Has(const char* key) const { return members.contains(key); }
    bool IsNull() const { return kind == EKind::Null; }
};

/// Reads a document as RFC 8259 has it, true and false aside. Throws for anything else, and for a key that
/// stands twice in an object.
class CStrictJson
{
public:
    static SJson Parse(std::string_view text)
    {
        CStrictJson parser(text);
        SJson value = parser.Value();
        parser.Space();
        parser.Require(parser.m_rest.empty());
        return value;
    }

private:
    explicit CStrictJson(std::string_view text)
        : m_rest(text)
    {
    }

    void Require(bool is) const
    {
        if (!is)
            throw std::runtime_error("no JSON: " + std::string(m_rest.substr(0, 40)));
    }
    void Space() { m_rest.remove_prefix(std::min(m_rest.find_first_not_of(" \n\r\t"), m_rest.size())); }
    bool Take(char c)
    {
        Space();
        const bool is = m_rest.starts_with(c);
        m_rest.remove_prefix(is ? 1 : 0);
        return is;
    }
    SJson Value()
    {
        Space();
        Require(!m_rest.empty());
        switch (m_rest.front()) {
        case '{':
            return Object();
        case '[':
            return Array();
        case '"':
            return {.kind = SJson::EKind::Text, .text = Text()};
        case 'n':
            Require(m_rest.starts_with("null"));
            m_rest.remove_prefix(4);
            return {};
        default:
            return Number();
        }
    }
    SJson Object()
    {
        SJson object{.kind = SJson::EKind::Object};
        Take('{');
        for (bool isFirst = true; !Take('}'); isFirst = false) {
            Require(isFirst || Take(','));
            Space();
            const std::string key = Text();
            Require(Take(':'));
            Require(object.members.emplace(key, Value()).second);
        }
        return object;
    }
    SJson Array()
    {
        SJson array{.kind = SJson::EKind::Array};
        Take('[');
        for (bool isFirst = true; !Take(']'); isFirst = false) {
            Require(isFirst || Take(','));
            array.elements.push_back(Value());
        }
        return array;
    }
    std::string Text()
    {
        std::string text;
        Require(Take('"'));
        for (;;) {
            Require(!m_rest.empty() && static_cast<unsigned char>(m_rest.front()) >= 0x20);
            const char c = m_rest.front();
            m_rest.remove_prefix(1);
            if (c == '"')
                return text;
            text += c == '\\' ? Escaped() : c;
        }
    }
    char Escaped()
    {
        if (Take('"'))
            return '"';
        if (Take('\\'))
            return '\\';
        Require(m_rest.size() >= 5 && m_rest.starts_with("u00"));
        int code = 0;
        const auto [end, error] = std::from_chars(m_rest.data() + 1, m_rest.data() + 5, code, 16);
        Require(end == m_rest.data() + 5);
        m_rest.remove_prefix(5);
        return static_cast<char>(code);
    }
    SJson Number()
    {
        const std::string_view digits = m_rest.substr(0, m_rest.find_first_not_of("+-.0123456789eE"));
        const std::string_view magnitude = digits.substr(digits.starts_with('-') ? 1 : 0);
        Require(!magnitude.empty() && magnitude.front() >= '0' && magnitude.front() <= '9');
        Require(magnitude.front() != '0' || magnitude.size() == 1 || magnitude[1] == '.' ||
                magnitude[1] == 'e');
        SJson number{.kind = SJson::EKind::Number};
        const auto [end, error] =
            CommonUI::FromChars(digits.data(), digits.data() + digits.size(), number.number);
        Require(error == std::errc() && end == digits.data() + digits.size());
        m_rest.remove_prefix(digits.size());
        return number;
    }

    std::string_view m_rest;
};
