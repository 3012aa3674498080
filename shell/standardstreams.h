#pragma once

/// Puts the null device in place of the standard streams that the host has closed. Otherwise files
/// and links of the program's own get their numbers, and what is printed goes there. Does nothing
/// on Windows, where a program without a console has none.
void fillStandardStreams();
