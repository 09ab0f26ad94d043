#include "settings/profile_file.h"
