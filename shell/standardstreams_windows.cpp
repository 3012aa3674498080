#include "shell/standardstreams.h"

void fillStandardStreams() {}
