#include "http/jsonreader.h"
