#include <CommonUI/formats/SurfaceReader.h>
#include <CommonUI/measurement/ReportTables.h>
#include <CommonUI/measurement/Steps.h>

#include <fstream>
#include <iostream>

using namespace CommonUI;

namespace
{

// The surface levelled and without spikes: what a set of the catalogue says, by the text that names it.
Measurement::SInput Prepare(Analysis::SSurface surface)
{
    CSettingsFactory factory;
    const Measurement::SSets sets = Measurement::LoadSets(factory, {u"Filter[Id(76)]"});
    return Measurement::Process(std::move(surface), Analysis::ELevelling::Plane, sets.steps);
}

// What is computed and in which unit it is shown. A program with a window takes the user's preferences here.
Measurement::SChoices Choose()
{
    Measurement::SRequest request;
    request.keys = {u"Sa", u"Sq", u"Sz", u"Smc(10)", u"4287Ra", u"4287Rz"};
    CUnit unit;
    if (CUnit::ParseLength(u"nm", unit))
        request.unit = unit.GetFactor();
    return Measurement::MakeChoices(CAnalysisPreferencesManager(), request);
}

void Write(const char* path, const std::string& text)
{
    std::ofstream file(path, std::ios::binary);
    file << text << std::flush;
    if (!file)
        throw std::runtime_error(std::string(path) + ": the file cannot be written");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: roughness_report FILE\n";
        return 2;
    }
    try {
        // The results refer to it.
        const Measurement::SInput input = Prepare(Formats::ReadSurface(argv[1], Formats::SReadOptions{}));
        const Measurement::CReportTables tables(Measurement::ComputeResults(input, Choose()), false);
        for (const Measurement::SColumn& column : tables.GetResults().surface)
            std::cout << column.GetKey().ToUtf8() << " " << column.GetText(column.values.back()).ToUtf8()
                      << " " << column.GetUnitText().ToUtf8() << "\n";
        Write("roughness.html", tables.GetHtml());
        Write("roughness.txt", tables.GetText());
        std::cout << tables.GetResults().rowCount << " profiles in roughness.html and roughness.txt\n";
    } catch (const std::exception& error) { // what was asked for and cannot be done, in one sentence
        std::cerr << error.what() << "\n";
        return 1;
    }
    return 0;
}
