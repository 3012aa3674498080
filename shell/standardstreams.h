#pragma once

/// Opens the null device for each standard stream that the host has closed. Otherwise the program's
/// own files and connections would get their numbers and receive what is printed. Does nothing on
/// Windows, where a program without a console has no standard streams.
void fillStandardStreams();
