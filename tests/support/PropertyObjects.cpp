#include "PropertyObjects.h"
