# The names of the Debian packages, by component, where their programs lie, and who answers for them.
set(plugin_package qtsystemmonitor)
set(tools_package ${plugin_package}-tools)
set(program_folder lib/${CMAKE_LIBRARY_ARCHITECTURE}/${plugin_package})
set(PACKAGE_MAINTAINER "QtSystemMonitor maintainers <maintainers@qtsystemmonitor.example>" CACHE STRING
    "Name and address that packages bear")
