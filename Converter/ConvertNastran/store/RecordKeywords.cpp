// Keywords of elements and properties.

#include "store/ElementRecords.h"
#include "store/PropertyRecords.h"

const char* KeywordOf(const T_ELEM_D& rElement) {
    switch (rElement.iTYPE) {
    case TYPE_ROD:
        return "CROD";
    case TYPE_BAR:
        return "CBAR";
    case TYPE_TUBE:
        return "CTUBE";
    case TYPE_BEAM:
        return "CBEAM";
    case TYPE_BEND:
        return "CBEND";
    case TYPE_GAP:
        return "CGAP";
    case TYPE_SHEAR:
        return "CSHEAR";
    case TYPE_MASS:
        return "CONM2";
    case TYPE_BUSH:
        return "CBUSH";
    default:
        break;
    }
    switch (rElement.iSUBTYPE) {
    case SHAPE_TRIA3:
        return "CTRIA3";
    case SHAPE_TRIA6:
        return "CTRIA6";
    case SHAPE_QUAD8:
        return "CQUAD8";
    case SHAPE_TETRA:
        return "CTETRA";
    case SHAPE_PENTA:
        return "CPENTA";
    case SHAPE_HEXA:
        return "CHEXA";
    default:
        return "CQUAD4";
    }
}

const char* KeywordOf(const T_PROP_D& rProperty) {
    switch (rProperty.iPROPTYPE) {
    case PROP_ROD:
        return "PROD";
    case PROP_BAR:
        return rProperty.bSHAPE ? "PBARL" : "PBAR";
    case PROP_TUBE:
        return "PTUBE";
    case PROP_BEAM:
        return "PBEAM";
    case PROP_SOLID:
        return "PSOLID";
    case PROP_MEMBRANE:
    case PROP_BENDING:
    case PROP_SHELL:
        return "PSHELL";
    case PROP_ELAS:
        return "PELAS";
    case PROP_BEND:
        return "PBEND";
    case PROP_GAP:
        return "PGAP";
    case PROP_COMP:
        return "PCOMP";
    case PROP_BUSH:
        return "PBUSH";
    default:
        return nullptr;
    }
}

bool HasMaterial(const T_PROP_D& rProperty) {
    switch (rProperty.iPROPTYPE) {
    case PROP_ROD:
    case PROP_BAR:
    case PROP_TUBE:
    case PROP_BEAM:
    case PROP_SOLID:
    case PROP_MEMBRANE:
    case PROP_BENDING:
    case PROP_SHELL:
        return true;
    default:
        return false;
    }
}
