// What stands for the page where nothing could build it.

#include "nas2zdt/report/Page.h"

const T_PAGE_D* GetReportPage() {
    return nullptr;
}
