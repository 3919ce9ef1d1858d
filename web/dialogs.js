// The add-on's dialogs: every `dialog/ID` that is up, drawn as a window of its controls.
//
// Places and sizes come in dialog units and are drawn at DIALOG_UNIT_PX pixels per unit, one
// factor for every dialog: at 0.14 the Key Frame Animation dialog (4870 x 2620 units) is 682 x 367
// pixels and a button's line of 145 units is 20 pixels, room for the 13-pixel text of the page.

import { CONTROL_KINDS, mnemonicOf } from './controls.js';
import { MenuBar } from './menus.js';
import { parseMnemonic, plainText } from './mnemonic.js';

export const DIALOG_UNIT_PX = 0.14;

// A label's lines are this many units high (docs/ui-scripting.md, "Finding").
const LABEL_LINE_UNITS = 145;
// The kinds named by the label beside them rather than a label of their own.
const NAMED_BESIDE = new Set(['textfield', 'spintextfield', 'list', 'optionmenu', 'radiobox']);

// The label that names a control without one, as $!UI finds it: the nearest label left of it on
// its rows, else a label just above it. Its plain text becomes the control's accessible name.
function besideLabel(control, labels) {
    const lines = (label) => label.label.split('\n').length;
    const bottom = (label) => label.y + lines(label) * LABEL_LINE_UNITS;
    const onRow = labels.filter((l) => l.x < control.x && l.y < control.y + control.height && bottom(l) > control.y);
    if (onRow.length) return onRow.reduce((a, b) => (b.x > a.x ? b : a));
    const above = labels.filter((l) => bottom(l) <= control.y && control.y - bottom(l) < LABEL_LINE_UNITS
        && l.x <= control.x + control.width && l.x >= control.x - LABEL_LINE_UNITS);
    return above.reduce((a, b) => (!a || bottom(b) > bottom(a) ? b : a), null);
}

// The frame buttons as the state names them, and the word a dialogButton message carries.
const FRAME_BUTTONS = { OK: 'ok', Apply: 'apply', Cancel: 'cancel', Close: 'close', Help: 'help' };
// Where the first modeless dialog goes, and how far each next one is moved.
const MODELESS_MARGIN_PX = 16;
const MODELESS_STEP_PX = 28;

const px = (units) => `${Math.round(units * DIALOG_UNIT_PX)}px`;

export class Dialogs {
    constructor(studio, connection, windows) {
        this.studio = studio;
        this.connection = connection;
        this.windows = windows;
        this.shown = new Map(); // dialog id -> {win, area, buttons, menuBar, controls: Map}
        this.hiddenPlaces = new Map(); // dialog id -> where it was when it went down
        this.ui = {
            gui: (action, id, fields) => connection.gui(action, id, fields),
            control: (id) => studio.state[`control/${id}`] || {},
        };
        connection.onState((changed, isSnapshot) => this.refresh(changed, isSnapshot));
        document.addEventListener('keydown', (event) => this.altKey(event));
    }

    dialog(id) { return this.studio.state[`dialog/${id}`]; }

    refresh(changed, isSnapshot) {
        const ids = new Set();
        for (const key of changed) {
            const [kind, id] = key.split('/');
            if (kind === 'dialog') ids.add(Number(id));
            else if (kind === 'control') {
                const control = this.studio.state[key];
                if (control) ids.add(control.dialogId);
            }
        }
        if (isSnapshot) for (const id of this.shown.keys()) ids.add(id);
        // A control that went away names its dialog no more; redraw every dialog shown then.
        if ([...changed].some((key) => key.startsWith('control/') && !this.studio.state[key])) {
            for (const id of this.shown.keys()) ids.add(id);
        }
        for (const id of ids) {
            const dialog = this.dialog(id);
            if (dialog && dialog.up) this.draw(dialog);
            else this.remove(id);
        }
        if (changed.has('modal') || ids.size) {
            const order = (this.studio.state.modal || []).map((id) => this.shown.get(id)?.win).filter(Boolean);
            this.windows.orderModals(order);
        }
    }

    remove(id) {
        const shown = this.shown.get(id);
        if (!shown) return;
        shown.menuBar?.close();
        this.hiddenPlaces.set(id, { left: shown.win.element.offsetLeft, top: shown.win.element.offsetTop });
        this.windows.hide(shown.win);
        this.shown.delete(id);
    }

    create(dialog) {
        const win = this.windows.create({ title: dialog.title, modal: dialog.modal });
        win.element.dataset.dialogId = String(dialog.id);
        const menuElement = document.createElement('div');
        menuElement.className = 'dialog-menubar';
        const area = document.createElement('div');
        area.className = 'dialog-area';
        const buttons = document.createElement('div');
        buttons.className = 'dialog-buttons';
        win.body.append(menuElement, area, buttons);
        return { win, area, buttons, menuElement, menuBar: null, controls: new Map() };
    }

    draw(dialog) {
        let shown = this.shown.get(dialog.id);
        const isNew = !shown;
        if (isNew) {
            shown = this.create(dialog);
            this.shown.set(dialog.id, shown);
        }
        const { win, area } = shown;
        win.title.textContent = dialog.title;
        area.style.width = px(dialog.width);
        area.style.height = px(dialog.height);
        this.drawFrameButtons(shown, dialog);
        this.drawMenuBar(shown, dialog);
        for (const id of dialog.controls || []) {
            const control = this.studio.state[`control/${id}`];
            const kind = control && CONTROL_KINDS[control.kind];
            if (!kind) continue;
            let element = shown.controls.get(id);
            if (!element) {
                element = kind.create(control, this.ui);
                element.classList.add('control', `control-${control.kind}`);
                element.dataset.controlId = String(id);
                shown.controls.set(id, element);
                area.append(element);
            }
            element.style.left = px(control.x);
            element.style.top = px(control.y);
            if (control.kind !== 'label') {
                element.style.width = px(control.width);
                element.style.height = px(control.height);
            }
            kind.update(element, control);
            if (control.toolTip) element.title = control.toolTip;
            else element.removeAttribute('title');
            element.classList.toggle('insensitive', control.sensitive === false);
        }
        this.nameControls(shown, dialog);
        if (isNew) this.windows.show(win, dialog.modal ? null : () => this.place(dialog, win));
    }

    nameControls(shown, dialog) {
        const controls = (dialog.controls || []).map((id) => this.studio.state[`control/${id}`]).filter(Boolean);
        const labels = controls.filter((c) => c.kind === 'label');
        for (const control of controls) {
            if (!NAMED_BESIDE.has(control.kind)) continue;
            const element = shown.controls.get(control.id);
            const label = besideLabel(control, labels);
            const name = label ? plainText(label.label) : control.toolTip;
            const target = control.kind === 'spintextfield' ? element?.querySelector('input') : element;
            if (!target) continue;
            if (name) target.setAttribute('aria-label', name);
            else target.removeAttribute('aria-label');
        }
    }

    // Modeless dialogs open at the right edge of the page (beside the view), where they were left
    // when shown before; modal ones are centred by the window manager.
    place(dialog, win) {
        const before = this.hiddenPlaces.get(dialog.id);
        if (before) return before;
        const others = [...this.shown.values()].filter((s) => s.win !== win && !s.win.modal).length;
        const layer = this.windows.layer;
        return {
            left: layer.clientWidth - win.element.offsetWidth - MODELESS_MARGIN_PX - others * MODELESS_STEP_PX,
            top: MODELESS_MARGIN_PX * 3 + others * MODELESS_STEP_PX,
        };
    }

    drawFrameButtons(shown, dialog) {
        const names = dialog.buttons || [];
        const present = [...shown.buttons.children].map((b) => b.textContent);
        if (present.join() === names.join()) return;
        shown.buttons.textContent = '';
        for (const name of names) {
            const element = document.createElement('button');
            element.type = 'button';
            element.textContent = name;
            element.addEventListener('click', () => this.connection.gui('dialogButton', dialog.id, { button: FRAME_BUTTONS[name] || name.toLowerCase() }));
            shown.buttons.append(element);
        }
    }

    // The dialog's own menu bar: its menus, submenus, items and toggles as MenuBar describes them.
    drawMenuBar(shown, dialog) {
        if (!dialog.menuBar) {
            shown.menuElement.hidden = true;
            return;
        }
        shown.menuElement.hidden = false;
        if (!shown.menuBar) shown.menuBar = new MenuBar(shown.menuElement);
        const bar = this.studio.state[`control/${dialog.menuBar}`];
        const entry = (id) => {
            const control = this.studio.state[`control/${id}`] || {};
            const described = { controlId: id, label: control.label || '', sensitive: control.sensitive !== false };
            if (control.kind === 'menu') {
                return { ...described, kind: 'menu', entries: (control.children || []).map(entry) };
            }
            if (control.kind === 'menutoggle') {
                return { ...described, kind: 'toggle', on: !!control.isOn, choose: () => this.connection.gui('menuEntry', id, { on: !control.isOn }) };
            }
            return { ...described, kind: 'item', choose: () => this.connection.gui('menuEntry', id) };
        };
        const menus = (bar?.children || []).map(entry);
        const key = JSON.stringify(menus);
        if (key === shown.menuKey) return;
        shown.menuKey = key;
        shown.menuBar.setMenus(menus);
    }

    // Alt+letter presses the button of that mnemonic in the dialog that has the input, else opens
    // the dialog menu of that mnemonic.
    altKey(event) {
        if (!event.altKey || event.ctrlKey || event.metaKey || event.key.length !== 1) return;
        const win = this.windows.inputWindow() || this.windows.raised[this.windows.raised.length - 1];
        const shown = [...this.shown.values()].find((s) => s.win === win);
        if (!shown) return;
        const letter = event.key.toLowerCase();
        const dialog = this.dialog(Number(win.element.dataset.dialogId));
        for (const id of dialog?.controls || []) {
            const control = this.studio.state[`control/${id}`];
            if (control?.kind === 'button' && control.sensitive !== false && mnemonicOf(control) === letter) {
                event.preventDefault();
                this.connection.gui('press', id);
                return;
            }
        }
        const bar = shown.menuBar;
        const index = (bar?.menus || []).findIndex((menu) => parseMnemonic(menu.label).key === letter);
        if (index >= 0) {
            event.preventDefault();
            bar.open(index);
        }
    }
}
