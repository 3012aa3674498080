#pragma once

/// The event that carries settings to a key. It decides which members the reply has, and whether a
/// newly chosen sensor counts.
enum class SettingsOccasion { WillAppear, DidReceiveSettings };
