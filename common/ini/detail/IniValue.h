#pragma once

#include "common/Color.h"
#include "common/ini/detail/IniEncoding.h"
#include "common/Rect.h"
#include "common/Str.h"

#include <string>
#include <string_view>
#include <vector>

/// @file
/// The stored forms of the types that an INI file holds. ParseIniValue takes a value without blanks around it
/// and returns false when it is none of the type; FormatIniValue writes what ParseIniValue reads back, bit
/// for bit.

namespace CommonUI
{

bool ParseIniValue(std::string_view stored, bool& value);
bool ParseIniValue(std::string_view stored, int& value);
bool ParseIniValue(std::string_view stored, unsigned& value);
bool ParseIniValue(std::string_view stored, double& value);
bool ParseIniValue(std::string_view stored, SColor& value);
bool ParseIniValue(std::string_view stored, SRect& value);
bool ParseIniValue(std::string_view stored, SSize& value);
bool ParseIniValue(std::string_view stored, CStr& value);
bool ParseIniValue(std::string_view stored, std::vector<CStr>& value);
bool ParseIniValue(std::string_view stored, std::vector<double>& value);

std::string FormatIniValue(bool value, EIniEncoding encoding);
std::string FormatIniValue(int value, EIniEncoding encoding);
std::string FormatIniValue(unsigned value, EIniEncoding encoding);
std::string FormatIniValue(double value, EIniEncoding encoding);
std::string FormatIniValue(const SColor& value, EIniEncoding encoding);
std::string FormatIniValue(const SRect& value, EIniEncoding encoding);
std::string FormatIniValue(const SSize& value, EIniEncoding encoding);
std::string FormatIniValue(const CStr& value, EIniEncoding encoding);
std::string FormatIniValue(const std::vector<CStr>& value, EIniEncoding encoding);
std::string FormatIniValue(const std::vector<double>& value, EIniEncoding encoding);

} // namespace CommonUI
