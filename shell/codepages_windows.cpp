#include "shell/codepages.h"

// The system trims the working set of a process by itself.
void returnCodePages() {}
