#include "formats/SurfaceReader.h"

#include "analysis/areal/HeightParameters.h"
#include "formats/detail/Readers.h"
#include "formats/x3p/detail/Digest.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <new>

namespace CommonUI::Formats
{

namespace
{

constexpr std::string_view c_byteOrderMark = "\xEF\xBB\xBF";

std::string_view WithoutMark(std::string_view text)
{
    return text.starts_with(c_byteOrderMark) ? text.substr(c_byteOrderMark.size()) : text;
}

enum class EContent { Sdf, BinarySdf, Matrix, Profile, X3p };

struct SSignature {
    std::string_view start;
    EContent content;
};

// A "#" begins the header of a matrix unless its line names the columns of a profile.
constexpr SSignature c_signatures[] = {
    {"aISO-1.0", EContent::Sdf},       {"aBCR-1.0", EContent::Sdf},   {"bISO-1.0", EContent::BinarySdf},
    {"bBCR-1.0", EContent::BinarySdf}, {"PK\x03\x04", EContent::X3p}, {"#", EContent::Matrix},
};

// Looks at the first bytes of a file, so that one that is no surface is not read as a whole.
EContent FindContent(const CInputFile& file)
{
    const std::string_view head = WithoutMark(file.GetHead());
    if (head.empty())
        file.Fail("the file is empty");
    const auto* const found = std::ranges::find_if(
        c_signatures, [&](const SSignature& signature) { return head.starts_with(signature.start); });
    const bool isKnown = found != std::end(c_signatures);
    if (isKnown && found->content != EContent::Matrix)
        return found->content;
    if (IsProfileHead(head.substr(0, head.find('\n'))))
        return EContent::Profile;
    if (!isKnown)
        file.Fail(
            "not a surface: neither an archive of X3P, nor a first line that is 'aISO-1.0' or 'bISO-1.0', "
            "begins with '#' or names columns such as 'x [mm] z [um]'");
    return found->content;
}

// Parameters take powers of heights, which must not vanish. No instrument sees differences like that.
void CheckSpan(const std::vector<double>& heights, const CInputFile& file)
{
    constexpr double c_leastSpan = 1e-100;
    const Analysis::SRange range = Analysis::FindRange(heights);
    const double span = range.highest - range.lowest;
    if (span > 0 && span < c_leastSpan)
        file.Fail("the heights differ by less than 1e-100 m, too little to compute with");
}

Analysis::SSurface ReadText(CInputFile& file, EContent content, const SReadOptions& options)
{
    const SBytes bytes = file.ReadAll();
    CTextScanner scanner(file.GetName(), WithoutMark(bytes.View()), options.progress);
    switch (content) {
    case EContent::Sdf:
        return ReadSdf(scanner);
    case EContent::Profile:
        return ReadProfile(scanner, options.spacing);
    default:
        return ReadMatrix(scanner);
    }
}

Analysis::SSurface ReadContent(CInputFile& file, const SReadOptions& options)
{
    const EContent content = FindContent(file);
    if (options.spacing && content != EContent::Profile)
        file.Fail("the file has spacings of its own, so none may be given");
    switch (content) {
    case EContent::BinarySdf:
        return ReadBinarySdf(file, options.progress);
    case EContent::X3p:
        return ReadX3p(file, options.progress);
    default:
        return ReadText(file, content, options);
    }
}

} // namespace

Analysis::SSurface ReadSurface(const std::filesystem::path& path, const SReadOptions& options)
{
    try {
        CInputFile file(path);
        Analysis::SSurface surface = ReadContent(file, options);
        CheckSpan(surface.heights, file);
        const auto missing = std::count_if(surface.heights.begin(), surface.heights.end(),
                                           [](double z) { return std::isnan(z); });
        surface.missing = static_cast<std::size_t>(missing);
        surface.fileName = PathToUtf8(path.filename());
        if (options.progress)
            options.progress(1);
        return surface;
    } catch (const ENoDigest& error) {
        throw EReadError(NameInMessages(path) + ": " + error.what());
    } catch (const std::bad_alloc&) { // which has given back what was read
        throw EReadError(NameInMessages(path) + ": there is not enough memory for the file");
    }
}

Analysis::SSurface ReadSurface(const std::filesystem::path& path, const FProgress& progress)
{
    return ReadSurface(path, SReadOptions{.progress = progress});
}

} // namespace CommonUI::Formats
