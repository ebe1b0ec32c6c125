#include "windows/grid/detail/GridProvider.h"

#include "windows/detail/Automation.h"
#include "windows/detail/CallGuard.h"

#include <utility>

namespace CommonUI
{

namespace
{

using CSource = std::shared_ptr<CGridAutomation::SSource>;

constexpr long c_dataGrid = 50028, c_dataItem = 50029; // types of controls
constexpr EVENTID c_focusChanged = 20005;

UiaRect ToScreen(HWND window, const SRect& rect)
{
    POINT corner{rect.left, rect.top};
    ClientToScreen(window, &corner);
    return {static_cast<double>(corner.x), static_cast<double>(corner.y),
            static_cast<double>(rect.GetWidth()), static_cast<double>(rect.GetHeight())};
}

// What elements have in common: calls come on the thread of the window.
template<class... TPatterns>
class CElement : public CComObject<IRawElementProviderSimple, IRawElementProviderFragment, TPatterns...>
{
public:
    explicit CElement(CSource source)
        : m_source(std::move(source))
    {
    }

    HRESULT STDMETHODCALLTYPE get_ProviderOptions(ProviderOptions* result) override
    {
        *result = static_cast<ProviderOptions>(ProviderOptions_ServerSideProvider |
                                               ProviderOptions_UseComThreading);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetEmbeddedFragmentRoots(SAFEARRAY** result) override
    {
        *result = nullptr;
        return S_OK;
    }

protected:
    CGridPane* GetGrid() const { return m_source->GetGrid(); }
    HWND GetWindow() const { return m_source->window; }
    bool Exists(SGridCell cell) const
    {
        return GetGrid() && cell.row < GetGrid()->GetRowCount() && cell.column < GetGrid()->GetColumnCount();
    }
    const CSource& GetSource() const { return m_source; }
    // Calls something that gives a result where the grid is there; callbacks may throw.
    template<class FCall>
    HRESULT Give(bool exists, FCall call) const
    {
        if (!exists)
            return c_elementGone;
        HRESULT result = E_FAIL;
        GuardedCall([&] {
            call();
            result = S_OK;
        });
        return result;
    }

private:
    CSource m_source;
};

class CTableElement final : public CElement<IRawElementProviderFragmentRoot, IGridProvider>
{
public:
    using CElement::CElement;

    HRESULT STDMETHODCALLTYPE GetPatternProvider(PATTERNID pattern, IUnknown** result) override
    {
        *result = nullptr;
        if (pattern == UIA_GridPatternId)
            return QueryInterface(__uuidof(IGridProvider), reinterpret_cast<void**>(result));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetPropertyValue(PROPERTYID property, VARIANT* result) override
    {
        *result = {};
        if (property == UIA_ControlTypePropertyId)
            *result = ToVariant(c_dataGrid);
        else if (property == UIA_IsKeyboardFocusablePropertyId)
            *result = ToVariant(true);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_HostRawElementProvider(IRawElementProviderSimple** result) override
    {
        return GetHostProvider(GetWindow(), result);
    }
    HRESULT STDMETHODCALLTYPE Navigate(NavigateDirection direction,
                                       IRawElementProviderFragment** result) override;
    HRESULT STDMETHODCALLTYPE GetRuntimeId(SAFEARRAY** result) override
    {
        *result = nullptr; // that of the window
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_BoundingRectangle(UiaRect* result) override
    {
        *result = {}; // that of the window
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetFocus() override
    {
        ::SetFocus(GetWindow());
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_FragmentRoot(IRawElementProviderFragmentRoot** result) override
    {
        return QueryInterface(__uuidof(IRawElementProviderFragmentRoot), reinterpret_cast<void**>(result));
    }
    HRESULT STDMETHODCALLTYPE ElementProviderFromPoint(double x, double y,
                                                       IRawElementProviderFragment** result) override;
    HRESULT STDMETHODCALLTYPE GetFocus(IRawElementProviderFragment** result) override;
    HRESULT STDMETHODCALLTYPE GetItem(int row, int column, IRawElementProviderSimple** result) override;
    HRESULT STDMETHODCALLTYPE get_RowCount(int* result) override
    {
        return Give(GetGrid(), [&] { *result = static_cast<int>(GetGrid()->GetRowCount()); });
    }
    HRESULT STDMETHODCALLTYPE get_ColumnCount(int* result) override
    {
        return Give(GetGrid(), [&] { *result = static_cast<int>(GetGrid()->GetColumnCount()); });
    }

private:
    HRESULT GiveCell(SGridCell cell, IRawElementProviderFragment** result) const;
};

class CCellElement final : public CElement<IGridItemProvider>
{
public:
    CCellElement(CSource source, SGridCell cell)
        : CElement(std::move(source))
        , m_cell(cell)
    {
    }

    HRESULT STDMETHODCALLTYPE GetPatternProvider(PATTERNID pattern, IUnknown** result) override
    {
        *result = nullptr;
        if (pattern == UIA_GridItemPatternId)
            return QueryInterface(__uuidof(IGridItemProvider), reinterpret_cast<void**>(result));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetPropertyValue(PROPERTYID property, VARIANT* result) override
    {
        *result = {};
        return Give(Exists(m_cell), [&] { *result = GetValue(property); });
    }
    HRESULT STDMETHODCALLTYPE get_HostRawElementProvider(IRawElementProviderSimple** result) override
    {
        *result = nullptr; // no window of its own
        return S_OK;
    }
    // To the next and the one before from left to right and from top to bottom.
    HRESULT STDMETHODCALLTYPE Navigate(NavigateDirection direction,
                                       IRawElementProviderFragment** result) override
    {
        *result = nullptr;
        if (!Exists(m_cell))
            return c_elementGone;
        const std::size_t columns = GetGrid()->GetColumnCount();
        const std::size_t index = m_cell.row * columns + m_cell.column;
        if (direction == NavigateDirection_Parent)
            *result = new CTableElement(GetSource());
        else if (direction == NavigateDirection_NextSibling && index + 1 < columns * GetGrid()->GetRowCount())
            *result = new CCellElement(GetSource(), {(index + 1) / columns, (index + 1) % columns});
        else if (direction == NavigateDirection_PreviousSibling && index > 0)
            *result = new CCellElement(GetSource(), {(index - 1) / columns, (index - 1) % columns});
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetRuntimeId(SAFEARRAY** result) override
    {
        const int parts[] = {c_appendRuntimeId, static_cast<int>(m_cell.row),
                             static_cast<int>(m_cell.column)};
        *result = SafeArrayCreateVector(VT_I4, 0, 3);
        for (LONG i = 0; *result && i < 3; ++i) {
            int part = parts[i];
            SafeArrayPutElement(*result, &i, &part);
        }
        return *result ? S_OK : E_OUTOFMEMORY;
    }
    HRESULT STDMETHODCALLTYPE get_BoundingRectangle(UiaRect* result) override
    {
        *result = {};
        return Give(Exists(m_cell), [&] { *result = ToScreen(GetWindow(), GetGrid()->GetCellRect(m_cell)); });
    }
    HRESULT STDMETHODCALLTYPE SetFocus() override
    {
        return Give(Exists(m_cell), [&] {
            ::SetFocus(GetWindow());
            if (Exists(m_cell)) // who has lost the keyboard may have changed the table
                GetGrid()->SelectCell(m_cell);
        });
    }
    HRESULT STDMETHODCALLTYPE get_FragmentRoot(IRawElementProviderFragmentRoot** result) override
    {
        *result = new CTableElement(GetSource());
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_Row(int* result) override { return GiveNumber(m_cell.row, result); }
    HRESULT STDMETHODCALLTYPE get_Column(int* result) override { return GiveNumber(m_cell.column, result); }
    HRESULT STDMETHODCALLTYPE get_RowSpan(int* result) override { return GiveNumber(1, result); }
    HRESULT STDMETHODCALLTYPE get_ColumnSpan(int* result) override { return GiveNumber(1, result); }
    HRESULT STDMETHODCALLTYPE get_ContainingGrid(IRawElementProviderSimple** result) override
    {
        *result = new CTableElement(GetSource());
        return S_OK;
    }

private:
    HRESULT GiveNumber(std::size_t number, int* result) const
    {
        return Give(Exists(m_cell), [&] { *result = static_cast<int>(number); });
    }
    VARIANT GetValue(PROPERTYID property) const
    {
        const CGridPane& grid = *GetGrid();
        switch (property) {
        case UIA_ControlTypePropertyId:
            return ToVariant(c_dataItem);
        case UIA_NamePropertyId:
            return ToVariant(grid.Speak(m_cell).text);
        case UIA_HelpTextPropertyId:
            return ToVariant(grid.SpeakHeader(m_cell.column));
        case UIA_IsEnabledPropertyId:
            return ToVariant(grid.Speak(m_cell).enabled && IsWindowEnabled(GetWindow()));
        case UIA_IsKeyboardFocusablePropertyId:
            return ToVariant(true);
        case UIA_HasKeyboardFocusPropertyId:
            return ToVariant(grid.HasFocus() && grid.GetSelection().GetFocus() == m_cell);
        case UIA_IsOffscreenPropertyId: {
            RECT client{}, shared{};
            GetClientRect(GetWindow(), &client);
            const SRect cell = grid.GetCellRect(m_cell);
            const RECT place{cell.left, cell.top, cell.right, cell.bottom};
            return ToVariant(!IntersectRect(&shared, &client, &place));
        }
        default:
            return {};
        }
    }

    SGridCell m_cell;
};

HRESULT CTableElement::GiveCell(SGridCell cell, IRawElementProviderFragment** result) const
{
    *result = Exists(cell) ? new CCellElement(GetSource(), cell) : nullptr;
    return GetGrid() ? S_OK : c_elementGone;
}

HRESULT STDMETHODCALLTYPE CTableElement::Navigate(NavigateDirection direction,
                                                  IRawElementProviderFragment** result)
{
    *result = nullptr;
    if (!GetGrid() || direction == NavigateDirection_FirstChild)
        return GiveCell({0, 0}, result);
    if (direction == NavigateDirection_LastChild)
        return GiveCell({GetGrid()->GetRowCount() - 1, GetGrid()->GetColumnCount() - 1}, result);
    return S_OK; // the system knows what is around the window
}

HRESULT STDMETHODCALLTYPE CTableElement::ElementProviderFromPoint(double x, double y,
                                                                  IRawElementProviderFragment** result)
{
    *result = nullptr;
    if (!GetGrid())
        return c_elementGone;
    POINT point{static_cast<LONG>(x), static_cast<LONG>(y)};
    ScreenToClient(GetWindow(), &point);
    const SGridHit hit = GetGrid()->HitTest({point.x, point.y});
    if (hit.part == SGridHit::EPart::Cell)
        return GiveCell(hit.cell, result);
    return QueryInterface(__uuidof(IRawElementProviderFragment), reinterpret_cast<void**>(result));
}

HRESULT STDMETHODCALLTYPE CTableElement::GetFocus(IRawElementProviderFragment** result)
{
    *result = nullptr;
    return GetGrid() ? GiveCell(GetGrid()->GetSelection().GetFocus(), result) : c_elementGone;
}

HRESULT STDMETHODCALLTYPE CTableElement::GetItem(int row, int column, IRawElementProviderSimple** result)
{
    *result = nullptr;
    const SGridCell cell{static_cast<std::size_t>(row), static_cast<std::size_t>(column)};
    if (!Exists(cell)) // negative ones, too
        return GetGrid() ? E_INVALIDARG : c_elementGone;
    *result = new CCellElement(GetSource(), cell);
    return S_OK;
}

} // namespace

LRESULT CGridAutomation::Answer(WPARAM wide, LPARAM longer)
{
    if (static_cast<LONG>(longer) != c_rootObject || !m_source->GetGrid())
        return 0;
    auto* const table = new CTableElement(m_source);
    const LRESULT result = GiveProvider(m_source->window, wide, longer, table);
    table->Release();
    m_isAsked = m_isAsked || result != 0;
    return result;
}

void CGridAutomation::End()
{
    m_source->view = nullptr;
    if (std::exchange(m_isAsked, false))
        EndProviders(m_source->window);
}

void CGridAutomation::TellFocus() const
{
    if (!m_isAsked || !m_source->GetGrid() || !m_source->GetGrid()->HasFocus())
        return;
    const auto isHeard = FindAutomation<BOOL(WINAPI*)()>("UiaClientsAreListening");
    const auto raise =
        FindAutomation<HRESULT(WINAPI*)(IRawElementProviderSimple*, EVENTID)>("UiaRaiseAutomationEvent");
    if (!raise || !isHeard || !isHeard())
        return;
    auto* const cell = new CCellElement(m_source, m_source->GetGrid()->GetSelection().GetFocus());
    raise(cell, c_focusChanged);
    cell->Release();
}

} // namespace CommonUI
