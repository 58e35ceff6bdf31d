/* Message libraries that aren't as they should be: ODD_NAME and ODD_TEXT make one. */

__attribute__((visibility("default"))) const char* ODD_NAME(const char* sKey);

const char* ODD_NAME(const char* sKey) {
    (void)sKey;
    return ODD_TEXT;
}
