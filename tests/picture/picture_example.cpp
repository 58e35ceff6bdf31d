// Draws the model of the tests and one without anything into the folder that it is given, for readers that aren't ours.

#include "nas2zdt/picture/Picture.h"
#include "picture/Model.h"

int main(int nArgs, char** aArgs) {
    if (nArgs != 2) return 2;
    const std::string sFolder = std::string(aArgs[1]) + "/";
    const CStoredRun run(MODEL_CARDS);
    const CDataPool& model = run.GetDataPool();
    CSvgPicture(model).Write("<model> & \xFF", sFolder + "model.svg");
    WriteVtu(model, sFolder + "model.vtu");
    const CDataPool empty;
    CSvgPicture(empty).Write("", sFolder + "empty.svg");
    WriteVtu(empty, sFolder + "empty.vtu");
}
