// The message list on a desktop.

#include "platform/gtk/MsgDlg.h"

#include "platform/gtk/Windows.h"

namespace {

constexpr int WIDTH = 620;
constexpr int HEIGHT = 420;

GtkWidget* MakeList(const std::vector<std::string>& aLines) {
    GtkListStore* pRows = gtk_list_store_new(1, G_TYPE_STRING);
    for (const std::string& sLine : aLines) {
        gtk_list_store_insert_with_values(pRows, nullptr, -1, 0, ShowableText(sLine).c_str(), -1);
    }
    GtkWidget* pList = gtk_tree_view_new_with_model(GTK_TREE_MODEL(pRows));
    g_object_unref(pRows); // the list keeps it
    GtkCellRenderer* pText = gtk_cell_renderer_text_new();
    g_object_set(pText, "single-paragraph-mode", TRUE, "ypad", 0, nullptr);
    gtk_tree_view_append_column(GTK_TREE_VIEW(pList),
                                gtk_tree_view_column_new_with_attributes("", pText, "text", 0, nullptr));
    gtk_tree_view_set_headers_visible(GTK_TREE_VIEW(pList), FALSE);
    gtk_tree_view_set_enable_search(GTK_TREE_VIEW(pList), FALSE);
    gtk_tree_selection_set_mode(gtk_tree_view_get_selection(GTK_TREE_VIEW(pList)), GTK_SELECTION_NONE);
    return pList;
}

} // namespace

void CMsgDlg::DoModal() const {
    GtkWidget* pDialog = gtk_dialog_new();
    gtk_window_set_title(GTK_WINDOW(pDialog), Texts().sMESSAGES);
    gtk_window_set_default_size(GTK_WINDOW(pDialog), WIDTH, HEIGHT);
    GtkWidget* pScrolled = gtk_scrolled_window_new(nullptr, nullptr);
    gtk_scrolled_window_set_policy(GTK_SCROLLED_WINDOW(pScrolled), GTK_POLICY_ALWAYS, GTK_POLICY_ALWAYS);
    gtk_scrolled_window_set_overlay_scrolling(GTK_SCROLLED_WINDOW(pScrolled), FALSE);
    gtk_scrolled_window_set_shadow_type(GTK_SCROLLED_WINDOW(pScrolled), GTK_SHADOW_IN);
    gtk_container_add(GTK_CONTAINER(pScrolled), MakeList(m_aMessages));
    GtkWidget* pContent = gtk_dialog_get_content_area(GTK_DIALOG(pDialog));
    gtk_container_set_border_width(GTK_CONTAINER(pContent), 6);
    gtk_box_set_spacing(GTK_BOX(pContent), 6);
    gtk_box_pack_start(GTK_BOX(pContent), pScrolled, TRUE, TRUE, 0);
    GtkWidget* pClose = gtk_dialog_add_button(GTK_DIALOG(pDialog), Texts().sCLOSE, GTK_RESPONSE_OK);
    gtk_dialog_set_default_response(GTK_DIALOG(pDialog), GTK_RESPONSE_OK);
    gtk_widget_grab_focus(pClose); // Enter would stay in the list
    RunDialog(pDialog);
}
