#!/bin/sh
# A message library that is missing or odd: the run goes on, and the log shows what the library says.
# Usage: message_library_test.sh NAS2ZDT FOLDER-OF-ODD-LIBRARIES
set -eu
nas2zdt=$1 odd=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
cp "$nas2zdt" nas2zdt # the message library is looked for beside it
printf 'BEGIN BULK\nGRID,1\nRBAR,1,2\nENDDATA\n' >deck.dat

# logs NAME LINE COMMAND...: the command must log LINE for the card
logs() {
    name=$1 line=$2
    shift 2
    rm -f "$folder/deck.zdt"
    "$@" "$folder/deck.dat" >"$folder/out"
    if ! grep -Fqx -e "$line" "$folder/out" ||
        ! printf '*VERSION\n  5.8.1\n\n*NODE\n  1, 0, 0, 0\n\n' | cmp - "$folder/deck.zdt"; then
        echo "failed: $name" >&2
        cat "$folder/out" >&2
        exit 1
    fi
}

fallback='Error : DLL is not loaded. check message dll!'
places='RBAR|(Line:3~3)|%s|%n|%f|%'
key=IDS_NASTRAN_Not_convert_in_this_version

logs none "$fallback" ./nas2zdt
cp "$odd/no_export/Convertmsg.DLL" .
logs no_export "$fallback" ./nas2zdt
cp "$odd/other_places/Convertmsg.DLL" .
logs other_places "$places" ./nas2zdt
cp "$odd/no_text/Convertmsg.DLL" .
logs no_text "$key" ./nas2zdt
PATH=$folder:$PATH logs "a command that was found by its name" "$key" nas2zdt

# ---- each message asks for its text by its own key
{
    printf 'BEGIN BULK\nGRID,9\n'
    yes + | head -n 1001
    cat <<'END'
GRID,1
=(3)
GRID,2,,1.
GRID,3,9
RBAR,1
CBAR,1,1,8,2,1.,0.,0.
CBAR,2,1,1,8,1.,0.,0.
CBAR,3,1,1,2
PBARL,1,1,,HEXA
PBARL,2,1,,Z
PBARL,3,1,,HAT
PBARL,4,1,,CROSS
PBARL,5,1,,BOX1
RBE2,4,8
MPC,1
PLOAD1,1,99,FX,LE,0.,1.
PELAS,6
CELAS1,1,6,1,1
CELAS1,2,7,1,1
CELAS1,3,7,1,1,2,2
CELAS1,4,7,1
CELAS1,5,7,8,1
CELAS1,6,7,1,1,8,1
CELAS2,1,0.,1,1
CELAS2,3,1.,1,1,2,2
CELAS2,4,1.,1
CELAS2,5,1.,8,1
CELAS2,6,1.,1,1,8,1
ENDDATA
END
} >keys.dat
./nas2zdt keys.dat 2>/dev/null | grep -o 'IDS_NASTRAN_[A-Za-z0-9_]*' | LC_ALL=C sort -u >keys
diff - keys <<'END'
IDS_NASTRAN_AutoGenerate_Line_Cammand_is_ignored
IDS_NASTRAN_C1_and_C2_of_CELAS1_is_different
IDS_NASTRAN_C1_and_C2_of_CELAS2_is_different
IDS_NASTRAN_CELAS1_C_G_Data_is_not_correct
IDS_NASTRAN_CELAS2_C_G_Data_is_not_correct
IDS_NASTRAN_Cannot_read_mutipoint_constraint
IDS_NASTRAN_Error_Data_Line_Connectivity
IDS_NASTRAN_From_Grid_of_CBAR_is_not_proper
IDS_NASTRAN_Input_file_maked_by_FEAMAP_is_required
IDS_NASTRAN_Length_of_1Dim_element_is_in_error
IDS_NASTRAN_Not_Existing_PELAS_is_assigned_to_CELAS1
IDS_NASTRAN_Not_Existing_grid_is_assigned_from_grid_pt_of_CELAS1
IDS_NASTRAN_Not_Existing_grid_is_assigned_from_grid_pt_of_CELAS2
IDS_NASTRAN_Not_Existing_grid_is_assigned_grid_pt_of_COMMAND
IDS_NASTRAN_Not_Existing_grid_is_assigned_to_grid_pt_of_CELAS1
IDS_NASTRAN_Not_Existing_grid_is_assigned_to_grid_pt_of_CELAS2
IDS_NASTRAN_Not_Support_Box1_Section
IDS_NASTRAN_Not_Support_Cross_Section
IDS_NASTRAN_Not_Support_HEXA_Section
IDS_NASTRAN_Not_Support_Hat_Section
IDS_NASTRAN_Not_Support_Z_Section
IDS_NASTRAN_Not_convert_in_this_version
IDS_NASTRAN_Reference_Grid_of_CBAR_is_not_proper
IDS_NASTRAN_Stiffness_of_CELEAS2_is_zero_value
IDS_NASTRAN_Stiffness_of_PELAS_for_CELEAS1_is_zero_value
IDS_NASTRAN_To_Grid_of_CBAR_is_not_proper
IDS_NASTRAN_UCS_in_GRID_is_not_exit
END

# ---- nothing is loaded because it lies in the current folder
mkdir planted
cp nas2zdt planted/nas2zdt
mv Convertmsg.DLL planted
cd planted
# shellcheck disable=SC2016 # for the other shell
logs "another name than its own" "$fallback" bash -c 'exec -a "$PWD/nas2zdt" ../nas2zdt "$@"' -
LD_LIBRARY_PATH=: logs "a search path of empty pieces" "$fallback" ../nas2zdt
LD_LIBRARY_PATH=:.:$odd/other_places logs "a whole folder of a search path" "$places" ../nas2zdt
echo "1 passed, 0 failed"
