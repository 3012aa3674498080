#pragma once

/// Takes the code and constants of the program and its libraries out of the process's memory, most
/// of which was needed for the start only. What runs again comes back from the system's file cache
/// by itself.
void returnCodePages();
