/*!
 * \brief Pours a cup of tea.
 *
 * \synopsis
 */
void tea_pour(int cup);
