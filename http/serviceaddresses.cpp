#include "http/serviceaddresses.h"
