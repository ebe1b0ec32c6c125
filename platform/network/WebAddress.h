#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"

#include <string_view>

namespace CommonUI
{

/// @file
/// Addresses of the web, which come from feeds and servers and are not to be trusted.

/// Whether a text is the address of something that may be fetched or shown as a link: "http" or "https", the
/// name of a server, and what follows; no name of a user, no spaces, quotes or angle brackets, and at most
/// 2000 code units.
COMMONUI_API bool IsWebAddress(std::u16string_view text) noexcept;

/// The address that a link on a page leads to, as browsers understand it; empty where it is no address of the
/// web.
/// @param reference an address, or what differs from that of the page: "//server/a", "/a", "a", "?a", "#a"
/// @param page the address of the page; empty where there is none, and every reference has to be whole
COMMONUI_API CStr ResolveWebAddress(std::u16string_view reference, std::u16string_view page);

/// The name of the server in an address, with its port where it has one.
COMMONUI_API CStr GetWebServer(std::u16string_view address);

} // namespace CommonUI
