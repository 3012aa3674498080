#pragma once

namespace console {

/// What the console's control handler does with the control event \a event: takes it, and calls the
/// handler of onClosed, when the user closes the window. Every other event keeps its default
/// course.
bool takesControlEvent(unsigned long event);

} // namespace console
