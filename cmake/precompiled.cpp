// What a target needs to own precompiled headers: a source.
