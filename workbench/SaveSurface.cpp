#include "workbench/SaveSurface.h"

#include "common/file/FileReplacement.h"
#include "common/PathText.h"
#include "formats/SurfaceWriter.h"
#include "measurement/BackgroundWork.h"
#include "measurement/Request.h"
#include "qt/dialogs/QtProgressDialog.h"
#include "workbench/Texts.h"

#include <QFileInfo>

#include <chrono>
#include <exception>
#include <future>
#include <utility>

namespace Workbench
{

using namespace CommonUI;
using Formats::EFormat;
using Measurement::SInput;

namespace
{

constexpr std::chrono::milliseconds c_waitTime{20};
constexpr std::size_t c_pieceSize = std::size_t{1} << 20;

EFormat FormatOf(const CStr& path, const Analysis::SSurface& surface)
{
    const QString extension = QFileInfo(ToQString(path)).suffix().toLower();
    if (extension == QLatin1String("sdf"))
        return EFormat::Sdf;
    if (extension == QLatin1String("x3p"))
        return EFormat::X3p;
    if (extension == QLatin1String("txt") || extension == QLatin1String("asc"))
        return surface.IsProfile() ? EFormat::Profile : EFormat::Matrix;
    throw Measurement::ERequest(path, u"the name has to end in .sdf, .x3p, .txt or .asc");
}

// The bytes are made on a thread that is left alone when the user cancels: it cannot be stopped.
std::future<std::string> MakeBytes(std::function<std::string()> make)
{
    const auto task = std::make_shared<std::packaged_task<std::string()>>(std::move(make));
    std::future<std::string> bytes = task->get_future();
    Measurement::CBackgroundWork::Run([task] { (*task)(); });
    return bytes;
}

class CSaving
{
public:
    CSaving(QWidget* parent, const CStr& path, std::function<std::string()> make)
        : m_path(path)
        , m_bytes(MakeBytes(std::move(make)))
        , m_dialog(parent, Caption(path), Caption(path))
    {
        m_dialog.SetWork(*this, &CSaving::Work);
    }

    bool Run()
    {
        m_dialog.DoModal();
        if (!m_reason.IsEmpty())
            throw Measurement::ERequest(m_path, m_reason);
        return m_isDone;
    }

private:
    static CStr Caption(const CStr& path)
    {
        return CStr::Format(Text(EText::Saving), CStr(GetFileName(path)));
    }
    // On the worker.
    void Work()
    {
        while (m_bytes.wait_for(c_waitTime) != std::future_status::ready)
            if (m_dialog.IsCanceled())
                return;
        try {
            m_isDone = Write(m_bytes.get());
        } catch (const std::bad_alloc&) {
            m_reason = u"there is not enough memory";
        } catch (const std::exception& error) {
            m_reason = CStr::FromUtf8(error.what());
        }
    }
    bool Write(const std::string& bytes)
    {
        CFileReplacement file;
        bool isGood = file.Open(m_path, m_reason);
        for (std::size_t at = 0; isGood && at < bytes.size(); at += c_pieceSize) {
            if (m_dialog.IsCanceled())
                return false;
            isGood = file.Write(std::string_view(bytes).substr(at, c_pieceSize), m_reason);
        }
        return isGood && file.Replace(m_reason);
    }

    CStr m_path;
    std::future<std::string> m_bytes;
    CQtProgressThreadDialog m_dialog;
    CStr m_reason;
    bool m_isDone = false;
};

} // namespace

const char16_t* GetSaveFilter()
{
    return u"SDF (*.sdf)|*.sdf|X3P (*.x3p)|*.x3p|Text (*.txt;*.asc)|*.txt;*.asc||";
}

bool SaveSurface(QWidget* parent, const std::shared_ptr<const SInput>& input, const CStr& path)
{
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const EFormat format = FormatOf(path, input->surface);
    return SaveInBackground(parent, path, [=] { return WriteSurface(input->surface, format, now); });
}

bool SaveInBackground(QWidget* parent, const CStr& path, std::function<std::string()> make)
{
    return CSaving(parent, path, std::move(make)).Run();
}

} // namespace Workbench
