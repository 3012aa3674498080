#pragma once

/// Makes large blocks go back to the system when they are freed, so that one large picture or
/// backlog does not count as the program's memory for months.
void returnLargeBlocksWhenFreed();
