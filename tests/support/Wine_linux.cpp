#include "tests/support/Wine.h"

bool isUnderWine()
{
    return false;
}
