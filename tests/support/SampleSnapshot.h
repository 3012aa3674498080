#pragma once

/// Fills systemInfor with one value for each reading: two drives, of which the second does not
/// answer, and two playback devices, of which the second has no readable volume.
void fillSnapshot();
