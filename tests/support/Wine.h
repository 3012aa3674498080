#pragma once

/// Whether this program runs under Wine, where each call to the system takes long.
bool isUnderWine();
