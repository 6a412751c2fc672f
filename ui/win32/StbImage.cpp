// SPDX-License-Identifier: MIT
// The code of stb_image, for PNG files in memory only.
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#define STBI_NO_HDR
#define STBI_NO_LINEAR
#define STB_IMAGE_IMPLEMENTATION
#include <stb/stb_image.h>
