// The source that a target needs in order to own precompiled headers.
