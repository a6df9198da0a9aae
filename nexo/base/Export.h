#ifndef NEXO_BASE_EXPORT_H
#define NEXO_BASE_EXPORT_H

// Marks what the shared object exports; everything else is hidden.
#define NEXO_API __attribute__((visibility("default")))

#endif
