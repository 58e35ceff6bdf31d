// The message library: the English texts of the message keys. Placeholders follow the arguments of each call.

#include <cstring>

#ifdef _WIN32
#define CONVERTMSG_EXPORT extern "C" __declspec(dllexport)
#else
#define CONVERTMSG_EXPORT extern "C" __attribute__((visibility("default")))
#endif

namespace {

struct T_TEXT_D {
    const char* sKEY;
    const char* sTEXT;
};

constexpr T_TEXT_D TEXTS[] = {
    {"IDS_NASTRAN_Input_file_maked_by_FEAMAP_is_required",
     "The input file must be a NASTRAN bulk data deck as a pre-processor writes it."},
    {"IDS_NASTRAN_Cannot_open_file", "The file can't be opened."},
    {"IDS_NASTRAN_Error_Data_Line_Connectivity", "A card has too many lines and is left out. (Line:%d~%d)"},
    {"IDS_NASTRAN_AutoGenerate_Line_Cammand_is_ignored",
     "A line that generates cards automatically is ignored. (after Line:%d)"},
    {"IDS_NASTRAN_Not_convert_in_this_version", "%s isn't converted in this version. %s"},
    {"IDS_NASTRAN_UCS_in_GRID_is_not_exit", "GRID %d refers to coordinate system %d, which doesn't exist."},
    {"IDS_NASTRAN_From_Grid_of_CBAR_is_not_proper", "Element %d: its first grid doesn't exist."},
    {"IDS_NASTRAN_To_Grid_of_CBAR_is_not_proper", "Element %d: its second grid doesn't exist."},
    {"IDS_NASTRAN_Reference_Grid_of_CBAR_is_not_proper", "Element %d: its orientation grid %d doesn't exist."},
    {"IDS_NASTRAN_Not_Support_HEXA_Section", "Property %d: a section of type HEXA isn't supported."},
    {"IDS_NASTRAN_Not_Support_Z_Section", "Property %d: a section of type Z isn't supported."},
    {"IDS_NASTRAN_Not_Support_Hat_Section", "Property %d: a section of type HAT or HAT1 isn't supported."},
    {"IDS_NASTRAN_Not_Support_Cross_Section", "Property %d: a section of type CROSS isn't supported."},
    {"IDS_NASTRAN_Not_Support_Box1_Section", "Property %d: a section of type BOX1 isn't supported."},
    {"IDS_NASTRAN_Not_Existing_grid_is_assigned_grid_pt_of_COMMAND", "Grid %d of %s %d doesn't exist."},
    {"IDS_NASTRAN_Cannot_read_mutipoint_constraint",
     "A multipoint constraint that doesn't have exactly two terms is left out."},
    {"IDS_NASTRAN_Distributed_load_of_1Dim_element_is_in_error",
     "Element %d: its distributed load can't be converted."},
    {"IDS_NASTRAN_Length_of_1Dim_element_is_in_error",
     "Element %d has no length, so its distributed load can't be converted."},
    {"IDS_NASTRAN_C1_and_C2_of_CELAS1_is_different", "CELAS1 %d: its two components differ."},
    {"IDS_NASTRAN_C1_and_C2_of_CELAS2_is_different", "CELAS2 %d: its two components differ."},
    {"IDS_NASTRAN_CELAS1_C_G_Data_is_not_correct",
     "CELAS1 %d: grids and components aren't correct (G1 %d, C1 %d, G2 %d, C2 %d)."},
    {"IDS_NASTRAN_CELAS2_C_G_Data_is_not_correct",
     "CELAS2 %d: grids and components aren't correct (G1 %d, C1 %d, G2 %d, C2 %d)."},
    {"IDS_NASTRAN_Not_Existing_PELAS_is_assigned_to_CELAS1", "CELAS1 %d refers to PELAS %d, which doesn't exist."},
    {"IDS_NASTRAN_Not_Existing_grid_is_assigned_from_grid_pt_of_CELAS1", "CELAS1 %d: its first grid %d doesn't exist."},
    {"IDS_NASTRAN_Not_Existing_grid_is_assigned_to_grid_pt_of_CELAS1", "CELAS1 %d: its second grid %d doesn't exist."},
    {"IDS_NASTRAN_Not_Existing_grid_is_assigned_from_grid_pt_of_CELAS2", "CELAS2 %d: its first grid %d doesn't exist."},
    {"IDS_NASTRAN_Not_Existing_grid_is_assigned_to_grid_pt_of_CELAS2", "CELAS2 %d: its second grid %d doesn't exist."},
    {"IDS_NASTRAN_Stiffness_of_PELAS_for_CELEAS1_is_zero_value", "CELAS1 %d: the stiffness of PELAS %d is zero."},
    {"IDS_NASTRAN_Stiffness_of_CELEAS2_is_zero_value", "CELAS2 %d: its stiffness is zero."},
};
static_assert(sizeof TEXTS / sizeof TEXTS[0] == 29);

} // namespace

/// Text of a key, or the key itself if there is none. Both stay with this library.
CONVERTMSG_EXPORT const char* LoadStr(const char* sKey) {
    for (const T_TEXT_D& rText : TEXTS) {
        if (std::strcmp(rText.sKEY, sKey) == 0) return rText.sTEXT;
    }
    return sKey;
}
