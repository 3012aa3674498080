#pragma once

/// Makes large blocks return to the system when they are freed, so that one large picture or
/// backlog does not remain in the program's memory for months.
void returnLargeBlocksWhenFreed();

/// Returns free memory between used blocks to the system, for example after a backlog has been
/// read, if it is more than a deck's pictures need. To be called now and then.
void returnFreedMemory();
