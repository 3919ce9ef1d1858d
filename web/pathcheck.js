// The path check of the add-on's key frame list (state `flight/check`): a panel docked under the
// dialog that holds the list, its warnings each with the check's message, "No warnings" when the
// flight is clean, what went wrong when the check failed, and "Checking..." while a check of the
// list as it now stands runs (docs/studio.md, "The path check").

export function showPathCheck(studio, connection) {
    // Docked into the dialog's window, which the dialogs' module makes anew each time it opens.
    const panel = document.getElementById('path-check-template').content.firstElementChild.cloneNode(true);
    const status = panel.querySelector('.path-check-status');
    const warnings = panel.querySelector('.path-check-warnings');

    const render = (check) => {
        panel.classList.toggle('checking', !!check.checking);
        panel.classList.toggle('failed', !!check.error);
        const parts = [];
        if (check.checking) parts.push('Checking\u2026');
        if (check.error) parts.push(check.error);
        else if (check.frames > 0) {
            parts.push(`${check.keyFrames} key frames, ${check.frames} frames`);
            if ((check.warnings || []).length === 0) parts.push('No warnings');
        }
        status.textContent = parts.join('\n');
        warnings.textContent = '';
        if (check.error) return;
        for (const warning of check.warnings || []) {
            const item = document.createElement('li');
            item.dataset.kind = warning.kind;
            item.textContent = warning.message;
            warnings.append(item);
        }
    };

    connection.onState((changed) => {
        if (![...changed].some((key) => key === 'flight/check' || key.startsWith('dialog/'))) return;
        const check = studio.state['flight/check'];
        // The dialogs' module has drawn its windows by now: it listens from before.
        const dialog = check && document.querySelector(`.dialog[data-dialog-id="${check.dialogId}"]`);
        if (!dialog) {
            panel.remove();
            return;
        }
        if (panel.parentElement !== dialog) dialog.append(panel);
        render(check);
    });
}
