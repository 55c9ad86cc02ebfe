/*! Switches the kettle off. */
void timer_stop(void);
