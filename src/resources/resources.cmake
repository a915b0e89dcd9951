# Resource files compiled into the core (filled in by the string table).
set(LUMACFG_RESOURCE_SOURCES "")
