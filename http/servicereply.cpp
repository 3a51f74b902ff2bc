#include "http/servicereply.h"
