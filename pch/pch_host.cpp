// Hosts the precompiled headers that the other targets reuse.
