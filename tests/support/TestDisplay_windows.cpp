#include "tests/support/TestDisplay.h"

#include <windows.h>

struct TestDisplay::Server
{
};

TestDisplay::TestDisplay() = default;
TestDisplay::~TestDisplay() = default;

bool TestDisplay::isThere() const
{
    // Without one, windows can be made and not found.
    const wchar_t *const title = L"probe for a display";
    HWND probe = CreateWindowExW(0, L"STATIC", title, WS_OVERLAPPED, 0, 0, 1, 1, nullptr, nullptr,
                                 nullptr, nullptr);
    const bool found = probe && FindWindowW(nullptr, title) == probe;
    DestroyWindow(probe);
    return found;
}

void TestDisplay::addTo(QProcessEnvironment & /*environment*/) const {}
