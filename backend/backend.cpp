#include "backend/backend.h"
