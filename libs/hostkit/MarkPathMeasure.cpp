#include <hostkit/MarkPathMeasure.h>
