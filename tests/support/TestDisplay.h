#pragma once

#include <QString>

#include <memory>

class QProcessEnvironment;

/// Where programs can open windows: on Linux an X server of its own, which lives as long as this
/// object; on Windows the desktop that this program runs on.
class TestDisplay
{
public:
    TestDisplay();
    ~TestDisplay();
    Q_DISABLE_COPY(TestDisplay)

    bool isThere() const;

    /// Leads the programs that get this environment to it.
    void addTo(QProcessEnvironment &environment) const;

private:
    struct Server;
    std::unique_ptr<Server> m_server;
};
