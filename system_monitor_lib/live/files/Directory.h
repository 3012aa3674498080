#pragma once

#include <memory>

#include <dirent.h>

struct DirectoryCloser
{
    void operator()(DIR *directory) const { ::closedir(directory); }
};

/// An open directory, closed at the end.
using Directory = std::unique_ptr<DIR, DirectoryCloser>;
