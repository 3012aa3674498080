#pragma once

class VqSystemMonitorLib;

/// Asks \a library for its sensor trees and overwrites the readings of systemInfor with what they
/// hold. Never fails: what is missing is 0 with its default units.
void refreshSystemInfor(VqSystemMonitorLib &library);

/// Asks \a library for its sensor groups and takes the names of processor and graphics from them.
void refreshModelNames(VqSystemMonitorLib &library);
