#pragma once

/// Makes large blocks go back to the system when they are freed, so that one large picture or
/// backlog does not count as the program's memory for months.
void returnLargeBlocksWhenFreed();

/// Gives back what lies freed between used blocks, such as a backlog's that has been read, when it
/// is more than a deck's pictures come to. To be called now and then.
void returnFreedMemory();
