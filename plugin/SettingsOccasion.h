#pragma once

/// The event that carries settings to a key. It decides which members the reply has, and whether a
/// sensor that is chosen anew counts.
enum class SettingsOccasion { WillAppear, DidReceiveSettings };
