#pragma once

#include <map>
#include <string>
#include <zip.h>

/// Bytes by the names of their entries.
using CEntries = std::map<std::string, std::string>;

/// An archive of deflated entries; empty where it cannot be made.
inline std::string Zip(const CEntries& entries)
{
    zip_source_t* const source = zip_source_buffer_create(nullptr, 0, 0, nullptr);
    zip_t* const zip = zip_open_from_source(source, ZIP_TRUNCATE, nullptr);
    zip_source_keep(source);
    for (const auto& [name, bytes] : entries)
        zip_file_add(zip, name.c_str(), zip_source_buffer(zip, bytes.data(), bytes.size(), 0), 0);
    std::string bytes;
    zip_stat_t status{};
    if (zip_close(zip) == 0 && zip_source_open(source) == 0 && zip_source_stat(source, &status) == 0) {
        bytes.resize(static_cast<std::size_t>(status.size));
        zip_source_read(source, bytes.data(), bytes.size());
        zip_source_close(source);
    }
    zip_source_free(source);
    return bytes;
}
