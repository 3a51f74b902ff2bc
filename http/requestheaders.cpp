#include "http/requestheaders.h"
