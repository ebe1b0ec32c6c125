#pragma once

#include "../common/Color.h"
#include "../export/Export.h"
#include "Service.h"

#include <functional>
#include <optional>

namespace CommonUI
{

/// The kinds of colours that a desktop shows its programs in.
enum class EColorScheme {
    Light = 0,
    Dark = 1,
    HighContrast = 2 ///< few colours far apart, for people who see little otherwise
};

/// The colours of a high-contrast scheme, which the user has chosen as they are.
struct SHighContrastColors {
    SColor ground{0, 0, 0};         ///< behind texts
    SColor text{255, 255, 255};     ///< and of all marks
    SColor selection{26, 235, 255}; ///< the ground of what is selected
    SColor selectedText{0, 0, 0};   ///< on `selection`
    SColor link{255, 255, 0};       ///< of texts that lead elsewhere

    friend bool operator==(const SHighContrastColors&, const SHighContrastColors&) = default;
};

/// What the desktop is set to.
struct SSystemColors {
    EColorScheme scheme = EColorScheme::Light; ///< what programs are to look like
    std::optional<SColor> accent{};     ///< the colour that the user likes; empty where the system tells none
    SHighContrastColors highContrast{}; ///< what the scheme has, if it is that one

    friend bool operator==(const SSystemColors&, const SSystemColors&) = default;
};

/// What an application lends the library to know the colours of the desktop. User-interface thread only.
class COMMONUI_API CSystemColors
{
public:
    /// Hears that the desktop is set to something else; asks Get what it is.
    using FListener = std::function<void()>;

    CSystemColors() = default;
    virtual ~CSystemColors();
    CSystemColors(const CSystemColors&) = delete;
    CSystemColors& operator=(const CSystemColors&) = delete;

    /// What the desktop is set to now.
    virtual SSystemColors Get() const = 0;
    /// Who is called after the user has set the desktop to something else, in place of the one before; an
    /// empty function for nobody.
    void SetListener(FListener listener);

    /// Which one the process uses: see CServiceScope.
    static CCurrentService<CSystemColors> s_current;

protected:
    /// For who overrides: calls the listener, if there is one, after Get has got another answer.
    void TellChanged() const;

private:
    FListener m_listener;
};

/// The service of the process: one of a light desktop unless another one was set.
COMMONUI_API CSystemColors& GetSystemColors();

} // namespace CommonUI
