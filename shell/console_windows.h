#pragma once

namespace console {

/// The console's control handler for the control event \a event: when the user closes the window,
/// it calls the handler of onClosed and reports the event as handled. Every other event keeps its
/// default action.
bool takesControlEvent(unsigned long event);

} // namespace console
