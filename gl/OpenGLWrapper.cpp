#include "gl/OpenGLWrapper.h"

#include "common/Diagnostics.h"
#include "gl/detail/ErrorTest.h"

#include <utility>

namespace CommonUI
{

namespace
{

// Made by the compiler, before any code runs, and without a destructor that does anything.
union UNeverDestroyed {
    constexpr UNeverDestroyed()
        : wrapper()
    {
    }
    ~UNeverDestroyed() {} // NOLINT(modernize-use-equals-default): it would be deleted

    COpenGLWrapper wrapper;
};

constinit UNeverDestroyed s_process;

template<class TExtension>
bool Update(std::unique_ptr<TExtension>& extension, HDC hdc)
{
    if (!extension)
        extension = std::make_unique<TExtension>();
    if (!extension->Load(hdc))
        extension.reset();
    return extension != nullptr;
}

} // namespace

constinit COpenGLWrapper& G_OpenGLWrapper = s_process.wrapper;

COpenGLWrapper::~COpenGLWrapper() = default;

COpenGLWrapper::COpenGLWrapper(COpenGLWrapper& other) noexcept
    : m_fatalError(other.m_fatalError)
    , m_pixelFormat(std::move(other.m_pixelFormat))
    , m_pbuffer(std::move(other.m_pbuffer))
{
}

// NOLINTNEXTLINE(misc-unconventional-assign-operator): it takes over what the other one holds
COpenGLWrapper& COpenGLWrapper::operator=(COpenGLWrapper& other) noexcept
{
    m_fatalError = other.m_fatalError;
    m_pixelFormat = std::move(other.m_pixelFormat);
    m_pbuffer = std::move(other.m_pbuffer);
    return *this;
}

bool COpenGLWrapper::CheckExtensions(HDC hdc)
{
    const bool hasPixelFormat = Update(m_pixelFormat, hdc);
    const bool hasPbuffer = Update(m_pbuffer, hdc);
    return hasPixelFormat && hasPbuffer;
}

bool COpenGLWrapper::TestOpenGLError(const CStr& operation, const CStr& function, const CStr& file, int line)
{
    if (m_fatalError)
        return true;
    if (!OpenGLErrorMsg(operation, function, file, line))
        return false;
    if (TakeError() != GL_NO_ERROR)
        m_fatalError = true;
    GetDiagnostics().Write({}, EDiagnosticLevel::Error,
                           CStr::Format(u"GLError: \"%s\" - Fatal: %d\n", operation, m_fatalError));
    return true;
}

} // namespace CommonUI
