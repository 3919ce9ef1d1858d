// One control of an add-on's dialog on the page, by kind (the model's words, docs/studio.md
// `control/ID`). Each kind has a create and an update: create builds the elements and wires the
// person's actions to gui messages; update shows the control's state from the host. The page never
// shows a press, a selection or a choice before the host's change comes back: what the person
// clicks is undone at once and the state that returns is drawn, so the host stays the truth. Only
// a text being typed is the page's own until it is committed (Enter or leaving the field).

import { parseMnemonic, plainText, renderLabel } from './mnemonic.js';

// How long a committed text or a requested selection waits for the host's answer before the
// page goes by the host's state again (an invalid number is put back by the host without a change
// to send).
const COMMIT_SETTLE_MS = 1500;

function disable(elements, control) {
    for (const element of elements) element.disabled = control.sensitive === false;
}

// Lines (from 1) between anchor and line, both included.
function range(anchor, line) {
    const lines = [];
    for (let i = Math.min(anchor, line); i <= Math.max(anchor, line); ++i) lines.push(i);
    return lines;
}

const button = {
    create(control, ui) {
        const element = document.createElement('button');
        element.type = 'button';
        element.addEventListener('click', () => ui.gui('press', control.id));
        return element;
    },
    update(element, control) {
        element.dataset.mnemonic = renderLabel(element, control.label) || '';
        element.setAttribute('aria-label', plainText(control.label));
        disable([element], control);
    },
};

const label = {
    create() {
        const element = document.createElement('div');
        return element;
    },
    update(element, control) {
        renderLabel(element, control.label);
    },
};

const frame = {
    create() {
        const element = document.createElement('fieldset');
        element.append(document.createElement('legend'));
        return element;
    },
    update(element, control) {
        renderLabel(element.firstChild, control.label);
    },
};

const toggle = {
    create(control, ui) {
        const element = document.createElement('label');
        const box = document.createElement('input');
        box.type = 'checkbox';
        const text = document.createElement('span');
        element.append(box, text);
        box.addEventListener('click', (event) => {
            event.preventDefault();
            ui.gui('toggle', control.id, { on: !ui.control(control.id).isOn });
        });
        return element;
    },
    update(element, control) {
        const [box, text] = element.children;
        box.checked = !!control.isOn;
        renderLabel(text, control.label);
        disable([box], control);
    },
};

// A text field keeps what the person types until Enter or blur commits it as one `text` message.
function textInput(control, ui) {
    const input = document.createElement('input');
    input.type = 'text';
    input.spellcheck = false;
    input.dataset.editing = '';
    const commit = () => {
        if (input.dataset.editing !== 'typed') return;
        input.dataset.editing = 'committed';
        ui.gui('text', control.id, { text: input.value });
        clearTimeout(input.settleTimer);
        input.settleTimer = setTimeout(() => {
            if (input.dataset.editing !== 'committed') return;
            input.dataset.editing = '';
            input.value = ui.control(control.id).text || '';
        }, COMMIT_SETTLE_MS);
    };
    input.addEventListener('input', () => {
        input.dataset.editing = 'typed';
    });
    input.addEventListener('keydown', (event) => {
        if (event.key === 'Enter') {
            event.preventDefault();
            commit();
        } else if (event.key === 'Escape' && input.dataset.editing === 'typed') {
            event.preventDefault();
            event.stopPropagation();
            input.dataset.editing = '';
            input.value = ui.control(control.id).text || '';
        }
    });
    input.addEventListener('blur', commit);
    return input;
}

function showText(input, control) {
    // Not over what the person is typing; a committed text gives way to the host's answer.
    if (input.dataset.editing === 'typed') return;
    input.dataset.editing = '';
    clearTimeout(input.settleTimer);
    if (input.value !== (control.text || '')) input.value = control.text || '';
}

const textfield = {
    create(control, ui) {
        return textInput(control, ui);
    },
    update(element, control) {
        showText(element, control);
        disable([element], control);
    },
};

const spintextfield = {
    create(control, ui) {
        const element = document.createElement('div');
        element.className = 'spin';
        const input = textInput(control, ui);
        const arrows = document.createElement('div');
        arrows.className = 'spin-arrows';
        for (const [up, glyph, name] of [[true, '\u25b2', 'Up'], [false, '\u25bc', 'Down']]) {
            const arrow = document.createElement('button');
            arrow.type = 'button';
            arrow.tabIndex = -1;
            arrow.textContent = glyph;
            arrow.setAttribute('aria-label', name);
            arrow.addEventListener('click', () => ui.gui('spin', control.id, { up }));
            arrows.append(arrow);
        }
        input.addEventListener('keydown', (event) => {
            const up = { ArrowUp: true, ArrowDown: false }[event.key];
            if (up === undefined) return;
            event.preventDefault();
            ui.gui('spin', control.id, { up });
        });
        element.append(input, arrows);
        return element;
    },
    update(element, control) {
        const [input, arrows] = element.children;
        showText(input, control);
        disable([input, ...arrows.children], control);
    },
};

// A desktop list: click selects one line, Shift+click a range from the anchor, Ctrl+click flips
// one line; arrows move. Every change sends the whole selection.
const list = {
    create(control, ui) {
        const element = document.createElement('div');
        element.setAttribute('role', 'listbox');
        element.tabIndex = 0;
        element.anchor = 1;
        // Quick Ctrl+clicks build on the selection asked for last, which the host may not have
        // sent back yet; the host's answer (or its silence, for a refusal) ends the wait.
        const send = (lines) => {
            element.requested = lines;
            clearTimeout(element.requestTimer);
            element.requestTimer = setTimeout(() => { element.requested = null; }, COMMIT_SETTLE_MS);
            ui.gui('select', control.id, { lines });
        };
        const select = (line, event) => {
            const current = ui.control(control.id);
            if (current.sensitive === false) return;
            let lines = [line];
            if (current.multiSelection && event.shiftKey) {
                lines = range(element.anchor, line);
            } else if (current.multiSelection && (event.ctrlKey || event.metaKey)) {
                const selected = new Set(element.requested || current.selection || []);
                if (selected.has(line)) selected.delete(line);
                else selected.add(line);
                lines = [...selected].sort((a, b) => a - b);
                element.anchor = line;
            } else {
                element.anchor = line;
            }
            send(lines);
        };
        element.addEventListener('click', (event) => {
            const option = event.target.closest('[role=option]');
            if (option) select(Number(option.dataset.line), event);
        });
        element.addEventListener('keydown', (event) => {
            const current = ui.control(control.id);
            const count = (current.items || []).length;
            const step = { ArrowDown: 1, ArrowUp: -1 }[event.key];
            if (!step || count === 0) return;
            event.preventDefault();
            const selection = current.selection || [];
            const last = selection.length ? (step > 0 ? selection[selection.length - 1] : selection[0]) : 0;
            const line = Math.min(count, Math.max(1, last + step));
            if (current.multiSelection && event.shiftKey) send(range(element.anchor, line));
            else select(line, {});
        });
        return element;
    },
    update(element, control) {
        element.setAttribute('aria-multiselectable', control.multiSelection ? 'true' : 'false');
        element.setAttribute('aria-disabled', control.sensitive === false ? 'true' : 'false');
        const items = control.items || [];
        const selected = new Set(control.selection || []);
        if (element.requested && element.requested.join() === [...selected].sort((a, b) => a - b).join()) {
            element.requested = null;
            clearTimeout(element.requestTimer);
        }
        while (element.children.length > items.length) element.lastChild.remove();
        items.forEach((text, index) => {
            let option = element.children[index];
            if (!option) {
                option = document.createElement('div');
                option.setAttribute('role', 'option');
                option.dataset.line = String(index + 1);
                element.append(option);
            }
            if (option.textContent !== text) option.textContent = text;
            option.setAttribute('aria-selected', selected.has(index + 1) ? 'true' : 'false');
        });
    },
};

const optionmenu = {
    create(control, ui) {
        const element = document.createElement('select');
        element.addEventListener('change', () => {
            const entry = element.selectedIndex + 1;
            // Back to what the host shows until its change comes.
            element.selectedIndex = (ui.control(control.id).choice || 0) - 1;
            ui.gui('option', control.id, { entry });
        });
        return element;
    },
    update(element, control) {
        const items = control.items || [];
        const shown = [...element.options].map((o) => o.text);
        if (shown.join('\n') !== items.join('\n')) {
            element.textContent = '';
            for (const text of items) element.append(new Option(text));
        }
        element.selectedIndex = (control.choice || 0) - 1;
        disable([element], control);
    },
};

const radiobox = {
    create(control, ui) {
        const element = document.createElement('div');
        element.setAttribute('role', 'radiogroup');
        element.groupName = `radio-${control.id}`;
        element.addEventListener('click', (event) => {
            const input = event.target.closest('label')?.querySelector('input');
            if (!input || input.disabled) return;
            event.preventDefault();
            const button = Number(input.value);
            if (button !== ui.control(control.id).choice) ui.gui('radio', control.id, { button });
        });
        return element;
    },
    update(element, control) {
        const items = control.items || [];
        if (element.children.length !== items.length) {
            element.textContent = '';
            items.forEach((text, index) => {
                const row = document.createElement('label');
                const input = document.createElement('input');
                input.type = 'radio';
                input.name = element.groupName;
                input.value = String(index + 1);
                const span = document.createElement('span');
                row.append(input, span);
                element.append(row);
            });
        }
        [...element.children].forEach((row, index) => {
            const [input, span] = row.children;
            renderLabel(span, items[index]);
            input.checked = control.choice === index + 1;
            input.disabled = control.sensitive === false;
        });
    },
};

// The kinds placed in the dialog's area; the menu bar and its entries are drawn by dialogs.js.
export const CONTROL_KINDS = { button, label, frame, toggle, textfield, spintextfield, list, optionmenu, radiobox };

// The mnemonic letter of a button's label, for Alt+letter.
export function mnemonicOf(control) {
    return parseMnemonic(control.label || '').key;
}
