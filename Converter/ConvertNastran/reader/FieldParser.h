#pragma once
// From the text of a field to a value. No field ever fails: other texts convert as by atoi and atof.

#include <cstdint>
#include <string_view>

/// atoi in the C locale; a value outside of 32 bits becomes the nearest that fits. rWhole tells whether the text is
/// such an integer to its end.
std::int32_t TextToInt(std::string_view sText, bool& rWhole);
inline std::int32_t TextToInt(std::string_view sText) {
    bool bWhole = false;
    return TextToInt(sText, bWhole);
}

/// Value of a real field: atof in the C locale, where the first sign behind the first character begins an exponent
/// unless the field has an "E". Decimal notation alone: neither hexadecimal, nor infinity and not-a-number by name.
/// rWhole tells whether the field is such a number to its end, and not too large for one.
double TextToReal(std::string_view sField, bool& rWhole);
inline double TextToReal(std::string_view sField) {
    bool bWhole = false;
    return TextToReal(sField, bWhole);
}

/// The field as an integer: the default if it is empty, else atoi of it.
inline std::int32_t FieldToInt(std::string_view sField, std::int32_t iDefault) {
    return sField.empty() ? iDefault : TextToInt(sField);
}

/// The field as a real: the default if it is empty, else its value with the exponent forms of the card format.
inline double FieldToReal(std::string_view sField, double dDefault) {
    return sField.empty() ? dDefault : TextToReal(sField);
}

/// The field as a text: the default if it is empty.
inline std::string_view FieldToText(std::string_view sField, std::string_view sDefault = {}) {
    return sField.empty() ? sDefault : sField;
}
