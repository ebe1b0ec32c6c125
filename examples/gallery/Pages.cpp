#include "examples/gallery/Pages.h"

namespace Gallery
{

namespace
{

constexpr SPage c_pages[] = {
    {"numeric-edits", "Numeric edits", MakeNumericEditsPage, StageNumericEditsPage},
    {"services", "Services", MakeServicesPage, nullptr},
};

} // namespace

std::span<const SPage> GetPages()
{
    return c_pages;
}

} // namespace Gallery
