// Gives moc a translation unit for the enumerations' meta-object.
#include <tarnwell/constants.h>
