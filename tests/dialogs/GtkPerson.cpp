// Somebody in front of a desktop: looks at the windows whenever the main loop runs.

#include "dialogs/Person.h"

#include <X11/Xlib.h>
#include <algorithm>
#include <gtk/gtk.h>
#include <set>

namespace {

void ReadWidget(GtkWidget* pWidget, gpointer pData) {
    T_SHOWN_D& rShown = *static_cast<T_SHOWN_D*>(pData);
    if (GTK_IS_BUTTON(pWidget)) {
        std::string sButton = gtk_button_get_label(GTK_BUTTON(pWidget));
        std::erase(sButton, '_');
        rShown.aBUTTONS.push_back(sButton);
    } else if (GTK_IS_LABEL(pWidget)) {
        const std::string sText = gtk_label_get_text(GTK_LABEL(pWidget));
        if (!sText.empty() && gtk_widget_get_visible(pWidget)) rShown.aTEXTS.push_back(sText);
    } else if (GTK_IS_PROGRESS_BAR(pWidget)) {
        rShown.eKIND = SHOWN_PROGRESS;
        rShown.iBAR = static_cast<int>(gtk_progress_bar_get_fraction(GTK_PROGRESS_BAR(pWidget)) * 1000.0 + 0.5);
    } else if (GTK_IS_SCROLLED_WINDOW(pWidget)) {
        GtkPolicyType eAcross = GTK_POLICY_NEVER;
        GtkPolicyType eDown = GTK_POLICY_NEVER;
        gtk_scrolled_window_get_policy(GTK_SCROLLED_WINDOW(pWidget), &eAcross, &eDown);
        rShown.bBothBars = eAcross == GTK_POLICY_ALWAYS && eDown == GTK_POLICY_ALWAYS;
        gtk_container_foreach(GTK_CONTAINER(pWidget), &ReadWidget, pData);
    } else if (GTK_IS_TREE_VIEW(pWidget)) {
        rShown.eKIND = SHOWN_LIST;
        GtkTreeView* pList = GTK_TREE_VIEW(pWidget);
        rShown.bSelectable = gtk_tree_selection_get_mode(gtk_tree_view_get_selection(pList)) != GTK_SELECTION_NONE;
        GtkTreeModel* pRows = gtk_tree_view_get_model(pList);
        GtkTreeIter row;
        for (gboolean b = gtk_tree_model_get_iter_first(pRows, &row); b; b = gtk_tree_model_iter_next(pRows, &row)) {
            char* sRow = nullptr;
            gtk_tree_model_get(pRows, &row, 0, &sRow, -1);
            rShown.aTEXTS.push_back(sRow);
            g_free(sRow);
        }
        PangoLayout* pLayout = gtk_widget_create_pango_layout(pWidget, nullptr);
        int nWidest = 0;
        for (const std::string& sRow : rShown.aTEXTS) {
            int nWidth = 0;
            pango_layout_set_text(pLayout, sRow.c_str(), -1);
            pango_layout_get_pixel_size(pLayout, &nWidth, nullptr);
            nWidest = std::max(nWidest, nWidth);
        }
        g_object_unref(pLayout);
        const double dEnd = gtk_adjustment_get_upper(gtk_scrollable_get_hadjustment(GTK_SCROLLABLE(pWidget)));
        rShown.bScrollsToEnd = dEnd >= nWidest;
    } else if (GTK_IS_CONTAINER(pWidget)) {
        gtk_container_forall(GTK_CONTAINER(pWidget), &ReadWidget, pData);
    }
}

T_SHOWN_D ReadDialog(GtkWidget* pDialog) {
    T_SHOWN_D shown;
    shown.sTITLE = gtk_window_get_title(GTK_WINDOW(pDialog));
    if (GTK_IS_FILE_CHOOSER(pDialog)) {
        shown.eKIND = SHOWN_CHOOSER;
        GSList* pFilters = gtk_file_chooser_list_filters(GTK_FILE_CHOOSER(pDialog));
        for (GSList* p = pFilters; p; p = p->next) {
            shown.aTEXTS.push_back(gtk_file_filter_get_name(GTK_FILE_FILTER(p->data)));
        }
        g_slist_free(pFilters);
    } else {
        gtk_container_foreach(GTK_CONTAINER(pDialog), &ReadWidget, &shown);
    }
    return shown;
}

} // namespace

class CPerson::CEyes {
  public:
    explicit CEyes(std::string sDeck) : m_sDeck(std::move(sDeck)), m_nSource(g_timeout_add(10, &Look, this)) {}
    ~CEyes() { g_source_remove(m_nSource); }
    std::vector<T_SHOWN_D> m_aShown;

  private:
    static gboolean Look(gpointer pThis) {
        GList* pWindows = gdk_display_get_default() ? gtk_window_list_toplevels() : nullptr;
        CEyes& rEyes = *static_cast<CEyes*>(pThis);
        std::set<GtkWidget*> aThere;
        for (GList* p = pWindows; p; p = p->next) {
            auto* const pDialog = static_cast<GtkWidget*>(p->data);
            if (!GTK_IS_DIALOG(pDialog) || !gtk_widget_get_mapped(pDialog)) continue;
            aThere.insert(pDialog);
            if (!rEyes.m_aAnswered.contains(pDialog) && rEyes.Answer(pDialog)) rEyes.m_aAnswered.insert(pDialog);
        }
        g_list_free(pWindows);
        std::erase_if(rEyes.m_aAnswered, [&](GtkWidget* pDialog) { return !aThere.contains(pDialog); });
        return G_SOURCE_CONTINUE;
    }

    /// Returns whether the answer is given; a chooser takes its time to find the file.
    bool Answer(GtkWidget* pDialog) {
        int iResponse = GTK_RESPONSE_OK;
        if (GTK_IS_FILE_CHOOSER(pDialog)) {
            iResponse = m_sDeck.empty() ? GTK_RESPONSE_CANCEL : GTK_RESPONSE_ACCEPT;
            char* sChosen = gtk_file_chooser_get_filename(GTK_FILE_CHOOSER(pDialog));
            const bool bChosen = m_sDeck.empty() || (sChosen && m_sDeck == sChosen);
            g_free(sChosen);
            if (!bChosen) {
                if (m_pAsked != pDialog) gtk_file_chooser_set_filename(GTK_FILE_CHOOSER(pDialog), m_sDeck.c_str());
                m_pAsked = pDialog;
                return false;
            }
        }
        m_aShown.push_back(ReadDialog(pDialog));
        gtk_dialog_response(GTK_DIALOG(pDialog), iResponse);
        return true;
    }

    const std::string m_sDeck;
    GtkWidget* m_pAsked = nullptr; // the chooser that looks for the deck
    std::set<GtkWidget*> m_aAnswered;
    const guint m_nSource;
};

CPerson::CPerson(std::string sDeck) : m_pEyes(std::make_unique<CEyes>(std::move(sDeck))) {}

CPerson::~CPerson() = default;

const std::vector<T_SHOWN_D>& CPerson::GetShown() const {
    return m_pEyes->m_aShown;
}

bool HasScreen() {
    Display* pConnection = XOpenDisplay(nullptr); // past the toolkit, which the library is to set up
    if (pConnection) XCloseDisplay(pConnection);
    return pConnection != nullptr;
}
