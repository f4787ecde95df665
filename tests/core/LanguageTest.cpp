#include "support/TestHome.h"
