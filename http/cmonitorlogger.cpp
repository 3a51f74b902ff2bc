#include "http/cmonitorlogger.h"
